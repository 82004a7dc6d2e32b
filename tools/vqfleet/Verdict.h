#pragma once

#include "tools/vqfleet/ServerList.h"
#include "tools/vqfleet/Transport.h"

#include <curl/curl.h>

namespace VQ::Tool
{

/// How a request ended that brought no answer.
struct Ending
{
    CURLcode code = CURLE_OK;
    std::string detail;   ///< of the network library
    long status = 0;      ///< of HTTP; 0: none came
    long systemError = 0; ///< of the connection
    std::string cimError; ///< the header CIMError
    bool tooLarge = false;
};

/// What a person should know of it: the reason, and what would help.
Failure verdictOn(const Ending& ending, const Server& server, const Access& access, const Pace& pace);

/// What a failure that the server tells of has to do with how it is set up, to be added to its text; mostly nothing.
std::string remedyOf(const Failure& failure, const Server& server);

}
