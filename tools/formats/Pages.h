#pragma once

namespace VQ::Tool
{

// The templates of pages, their style and their script: the files of tools/formats/html.
extern const char* const PageHtml;
extern const char* const MachineHtml;
extern const char* const ClassHtml;
extern const char* const GlossaryHtml;
extern const char* const ComparisonHtml;
extern const char* const StyleCss;
extern const char* const FleetJs;

}
