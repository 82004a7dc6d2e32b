#pragma once

#include "tools/core/Answer.h"

#include <optional>
#include <stdexcept>
#include <string>

namespace VQ::Tool
{

// The words of CIM-XML (DMTF DSP0200 and DSP0201): what a CIM server is asked, and what it says. No network here.

/// A question: the body of an HTTP request and the two headers that tell of it.
struct Question
{
    std::string method; ///< of the header CIMMethod
    std::string object; ///< of the header CIMObject
    std::string body;
    bool once = false; ///< not to be repeated where the connection breaks: it does something
};

/// `nameSpace` is "root/cimv2"; names are taken as they are and escaped.
Question askForInstances(const std::string& nameSpace, const std::string& className);
Question askForNames(const std::string& nameSpace, const std::string& className);

/// The instance of a path. Throws std::runtime_error where the text is no object path.
Question askForInstance(const std::string& nameSpace, const std::string& path);

/// A call of a method without parameters, of the instance that `keys` name.
Question askForCall(const std::string& nameSpace, const Instance& object, const std::string& method);

/// What a server sent can't be an answer to the question; the text says why.
class NoAnswer : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The most that a body may hold of what costs memory to take apart: tags, comments and attributes.
constexpr std::size_t MaxMarkup = 2000000;

// The answers to these questions. What the server says of a failure is in them; they throw NoAnswer where the body is
// not XML, holds more than `MaxMarkup`, or is no answer to this question. Texts are UTF-8, whatever the server sent,
// and hold the characters that XML forbids, too.

Answer answerWithInstances(const std::string& body, const std::string& className);
Answer answerWithNames(const std::string& body, const std::string& className);
Answer answerWithInstance(const std::string& body, const std::string& path);
MethodAnswer answerToCall(const std::string& body, const std::string& className, const std::string& method);

/// "CIM_ERR_INVALID_CLASS" for 5; "CIM_ERR_FAILED" for a number that is none of the standard's.
std::string nameOfError(unsigned code);

}
