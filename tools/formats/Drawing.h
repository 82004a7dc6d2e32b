#pragma once

#include "tools/core/Summary.h"

#include <string>

namespace VQ::Tool
{

// Parts of a machine as SVG pictures, to stand in a page. Their colours come from the page's style, by classes; every
// text in them is safe in HTML. Each is empty where there is nothing to draw.

std::string drawnBoards(const Summary& summary); ///< the chassis with its boards, and the slots by name
std::string drawnPanel(const Summary& summary);  ///< the connectors outside, each by its kind
std::string drawnCaches(const Summary& summary); ///< a pyramid, the first level on top
std::string drawnMemory(const Summary& summary); ///< a bar, with what is used of it

/// The text with the characters escaped that HTML reads.
std::string escapedHtml(const std::string& text);

}
