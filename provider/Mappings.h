#pragma once

#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/ResponseHandler.h>
#include <Pegasus/Common/String.h>

namespace VQ
{

// One function for each class: reads its records afresh and delivers one instance for each, in record order, under the
// class name as the client wrote it. An exception leaves a function as it comes, after the instances before it have
// been delivered.

void deliverBios(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler);
void deliverChassis(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler);
void deliverBaseBoards(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler);
void deliverCaches(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler);
void deliverPorts(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler);
void deliverSlots(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler);
void deliverComputerSystem(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler);
void deliverOperatingSystem(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler);
void deliverSystemMemory(const Pegasus::String& requestedClass, Pegasus::InstanceResponseHandler& handler);

}
