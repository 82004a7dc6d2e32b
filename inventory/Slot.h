#pragma once

#include <string>
#include <vector>

namespace VQ
{

/// An expansion slot.
class Slot
{
public:
    std::string getDesignation() const { return _designation; } ///< as the firmware wrote it, blanks included

protected:
    std::string _designation;
};

/// One record for each type 9 structure, in table order. Throws SmBiosError when the table is there but can't be read.
std::vector<Slot> GetSlotInstances();

}
