#pragma once

#include "tests/testing/TableBuilder.h"

/// A machine on which every class has instances, and every instance a path of its own.
TableBuilder fullTable();
