#pragma once

#include <cstddef>

namespace VQ::Tool
{

/// A line on standard error that tells how many machines have been asked, where that is a terminal and there are
/// several. It goes away with the object.
class Progress
{
public:
    explicit Progress(std::size_t machines);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void step(); ///< one more is done

private:
    void show() const;

    std::size_t _machines;
    std::size_t _done = 0;
    bool _shown;
};

}
