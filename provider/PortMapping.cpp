#include "inventory/Port.h"
#include "provider/ClassNames.h"
#include "provider/Mappings.h"
#include "provider/PropertyTable.h"

namespace VQ
{

namespace
{
Pegasus::CIMValue unlessEmpty(const std::string& text)
{
    return text.empty() ? Pegasus::CIMValue() : cimValue(text);
}
}

void deliverPorts(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler)
{
    static const PropertyTable<Port> table = {
        {"Caption", "Port Connector"},
        {"Description", "Port Connector"},
        {"Name", &Port::getExternalReferenceDesignator},
        {"Status", "Unknown"},
        {"CreationClassName", PortClass, TextKey},
        {"Tag", [](const Port&, const Request& request) { return numbered("PortConnector", request); }, TextKey},
        {"ExternalReferenceDesignator",
         [](const Port& port, const Request&) { return unlessEmpty(port.getExternalReferenceDesignator()); }},
        {"InternalReferenceDesignator",
         [](const Port& port, const Request&) { return unlessEmpty(port.getInternalReferenceDesignator()); }},
        {"PortType", &Port::getType},
        {"ConnectorType", &Port::getConnectors},
    };
    table.deliverEach(GetPortInstances(), requestedClass, handler);
}

}
