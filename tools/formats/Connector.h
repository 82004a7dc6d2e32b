#pragma once

#include "tools/formats/Svg.h"
#include "tools/knowledge/Connectors.h"

namespace VQ::Tool
{

/// Draws a connector as it looks from outside, into 48 x 30 units from the present origin.
void drawConnector(Svg& svg, ConnectorKind kind);

}
