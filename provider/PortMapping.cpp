#include "inventory/Port.h"
#include "provider/InstanceAssembly.h"
#include "provider/Mappings.h"

namespace VQ
{

using Pegasus::String;

void deliverPorts(const String& requestedClass, Pegasus::InstanceResponseHandler& handler)
{
    Pegasus::Uint32 index = 0;
    for (const Port& port : GetPortInstances()) {
        const std::string external = port.getExternalReferenceDesignator();
        const std::string internal = port.getInternalReferenceDesignator();
        InstanceAssembly instance(requestedClass);
        instance.add("Caption", "Port Connector");
        instance.add("Description", "Port Connector");
        instance.add("Name", external);
        instance.add("Status", "Unknown");
        instance.add("CreationClassName", "QORTAL_Port");
        instance.add("Tag", String("PortConnector") + cimText(index));
        if (!external.empty())
            instance.add("ExternalReferenceDesignator", external);
        if (!internal.empty())
            instance.add("InternalReferenceDesignator", internal);
        instance.add("PortType", port.getType());
        instance.add("ConnectorType", port.getConnectors());
        instance.deliver(PortKeys, handler);
        ++index;
    }
}

}
