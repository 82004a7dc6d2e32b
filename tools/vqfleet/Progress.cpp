#include "tools/vqfleet/Progress.h"

#include <cstdio>
#include <unistd.h>

namespace VQ::Tool
{

Progress::Progress(std::size_t machines) : _machines(machines), _shown(machines > 1 && isatty(STDERR_FILENO) != 0)
{
    show();
}

Progress::~Progress()
{
    if (_shown)
        std::fputs("\r\033[K", stderr);
}

void Progress::step()
{
    ++_done;
    show();
}

void Progress::show() const
{
    if (_shown)
        std::fprintf(stderr, "\r\033[K%zu of %zu machines done", _done, _machines);
}

}
