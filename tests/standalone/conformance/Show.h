#pragma once

#include <Pegasus/Common/CIMDateTime.h>
#include <Pegasus/Common/CIMName.h>
#include <Pegasus/Common/CIMObjectPath.h>
#include <Pegasus/Common/CIMStatusCode.h>
#include <Pegasus/Common/CIMType.h>
#include <Pegasus/Common/CIMValue.h>
#include <Pegasus/Common/Char16.h>
#include <Pegasus/Common/Config.h>
#include <Pegasus/Common/String.h>

#include <functional>
#include <string>
#include <type_traits>

// The program prints calls as they are written, each with what comes of it: a value or an exception.

/// Prints a call and its value.
#define SHOW(...) print(#__VA_ARGS__, [&] { return shown(__VA_ARGS__); })
/// Prints a call whose value does not matter.
#define DO(...)                                                                                                        \
    print(#__VA_ARGS__, [&] {                                                                                          \
        (void)(__VA_ARGS__);                                                                                           \
        return std::string("done");                                                                                    \
    })

/// A heading.
void section(const char* title);

/// One line: the call, and what `outcome` returns or the type of the exception that it throws.
void print(const std::string& call, const std::function<std::string()>& outcome);

/// The bytes in quotes; what is not printable ASCII stands as \xNN.
std::string quoted(const std::string& bytes);

std::string shown(bool value);
std::string shown(const char* text);
std::string shown(const Pegasus::Char16& unit);
std::string shown(const Pegasus::String& text);
std::string shown(const Pegasus::CIMName& name);
std::string shown(const Pegasus::CIMNamespaceName& name);
std::string shown(const Pegasus::CIMDateTime& datetime);
std::string shown(const Pegasus::CIMObjectPath& path);
std::string shown(Pegasus::CIMType type);
std::string shown(Pegasus::CIMStatusCode code);
std::string shown(Pegasus::CIMKeyBinding::Type type);
/// Type, array size, and the value's own text: `uint16[2] "1 2 "`.
std::string shown(const Pegasus::CIMValue& value);

template <class Integer, class = std::enable_if_t<std::is_integral<Integer>::value>> std::string shown(Integer value)
{
    return std::to_string(value);
}

void showStrings();
void showArrays();
void showNames();
void showValues();
void showDateTimes();
void showObjectPaths();
void showInstances();
void showExceptions();
void showRequests();
