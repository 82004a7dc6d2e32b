#pragma once

#include <string>

namespace VQ
{

/// Build number and version, as firmware writes them into the architected part of a product name: `ABCDE12-1.05`.
struct ArchitectedVersion
{
    std::string buildNumber; ///< the text before the first dash; the whole text without one
    std::string version;     ///< as many characters from the dash on as stand before it; empty without a dash
};

/// Splits architected data. Both parts lose all their dashes and then the blanks at their ends; a part of nothing but
/// blanks stays as it is.
ArchitectedVersion splitArchitectedVersion(const std::string& architected);

}
