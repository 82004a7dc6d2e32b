#pragma once

#include <functional>

namespace VQ::Load
{

/// Does the work while the working directory is `/`, as it is in a CIM server: in a thread with a working directory of
/// its own, so that the program's stays what it is; where the kernel refuses that, in the whole process, which is
/// brought back afterwards. Returns when the work is done. Throws std::bad_alloc where the work does, and Failure with
/// the text of whatever else it throws.
void inRoot(const std::function<void()>& work);

}
