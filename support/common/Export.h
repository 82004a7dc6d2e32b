#pragma once

/// Marks what a shared library of the project offers; everything else stays hidden.
#define VQ_EXPORT __attribute__((visibility("default")))
