#pragma once

#include "support/common/Export.h"

#include <string>

namespace VQ
{

/// A product-name text from an SMBIOS structure, split at its first complete `-[` ... `]-` block.
///
///     Server 100 -[8837ABC]-    architected "8837ABC", unarchitected "Server 100 "
class VQ_EXPORT ProductName
{
public:
    explicit ProductName(const std::string& text);

    /// The text between the first `-[` and the next `]-`, as it stands; empty without a complete block.
    std::string getArchitectedData() const { return _architected; }

    /// The text before and after that block, joined; the whole text without a complete block.
    std::string getUnarchitectedData() const { return _unarchitected; }

private:
    std::string _architected;
    std::string _unarchitected;
};

}
