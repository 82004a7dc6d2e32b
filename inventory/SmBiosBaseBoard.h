#pragma once

#include "inventory/BaseBoard.h"
#include "support/smbios/SmBios.h"

namespace VQ
{

/// Reads a base board from a type 2 structure. A text that can't be taken over leaves its field empty.
class SmBiosBaseBoard : public BaseBoard
{
public:
    explicit SmBiosBaseBoard(const SmBios::Table& table);
};

}
