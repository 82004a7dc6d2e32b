#include "support/common/ProductName.h"

namespace VQ
{

ProductName::ProductName(const std::string& text) : _unarchitected(text)
{
    static constexpr std::size_t BracketLength = 2;
    const std::size_t open = text.find("-[");
    if (open == std::string::npos)
        return;
    const std::size_t begin = open + BracketLength;
    const std::size_t end = text.find("]-", begin);
    if (end == std::string::npos)
        return;
    _architected = text.substr(begin, end - begin);
    _unarchitected = text.substr(0, open) + text.substr(end + BracketLength);
}

}
