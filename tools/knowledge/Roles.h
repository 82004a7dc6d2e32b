#pragma once

#include <string>

namespace VQ::Tool
{

// What a property is to those who compare machines, or hand their answers to others. By the names of the schema.

/// It moves all the time: the clock, free memory, the number of processes.
bool isMoving(const std::string& className, const std::string& property);

/// The time of the last start, which is computed anew for each answer and therefore right to the minute only.
bool isBootTime(const std::string& className, const std::string& property);

/// It holds the host name.
bool isHostName(const std::string& className, const std::string& property);

/// The host name once more, as each instance that belongs to the system has it.
bool repeatsHostName(const std::string& className, const std::string& property);

/// It tells one piece of hardware from another of its kind: a serial number, an asset tag.
bool isSerial(const std::string& property);

/// Whether the key says something of its instance, in place of the same for all of its class.
bool isTellingKey(const std::string& key);

}
