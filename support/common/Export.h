#pragma once

/// Marks what a shared library of the project offers; everything else stays hidden.
#define VQ_EXPORT __attribute__((visibility("default")))

/// Takes a member of such a class back out.
#define VQ_INTERNAL __attribute__((visibility("hidden")))
