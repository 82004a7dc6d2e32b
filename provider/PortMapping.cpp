#include "inventory/Port.h"
#include "provider/ClassNames.h"
#include "provider/Mappings.h"
#include "provider/PropertyTable.h"

#include <optional>
#include <string>

namespace VQ
{

namespace
{
std::optional<std::string> unlessEmpty(const std::string& text)
{
    return text.empty() ? std::nullopt : std::optional(text);
}
}

void deliverPorts(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler)
{
    static const PropertyTable<Port> table = {
        PortClass,
        {
            {"Caption", "Port Connector"},
            {"Description", "Port Connector"},
            {"Name", &Port::getExternalReferenceDesignator},
            {"Status", "Unknown"},
            {"CreationClassName", PortClass, TextKey},
            {"Tag", [](const Port&, const Request& request) { return numbered("PortConnector", request); }, TextKey},
            {"ExternalReferenceDesignator",
             [](const Port& port) { return unlessEmpty(port.getExternalReferenceDesignator()); }},
            {"InternalReferenceDesignator",
             [](const Port& port) { return unlessEmpty(port.getInternalReferenceDesignator()); }},
            {"PortType", &Port::getType},
            {"ConnectorType", &Port::getConnectors},
        },
    };
    table.deliverEach(GetPortInstances(), requestedClass, handler);
}

}
