#pragma once

#include <string>
#include <vector>

namespace VQ::Tool
{

/// A CIM server to ask.
struct Server
{
    std::string name;      ///< as the list says, else its host
    std::string address;   ///< where it answers: "https://web1:5989"
    std::string nameSpace; ///< "root/cimv2"
    std::string user;      ///< empty: none
    std::string pin;       ///< of its public key: "sha256//..."; empty: none of its own

    bool isTls() const { return address.compare(0, 8, "https://") == 0; }
    std::string place() const { return address + "/" + nameSpace; }
};

/// http[s]://[user@]host[:port][/namespace]; ports 5988 and 5989 and root/cimv2 unless it says otherwise. Throws
/// UsageError, also where a password stands in it.
Server parseServer(const std::string& url);

/// A server on each line: its URL, and in any order a name and a pin where it has them. Empty lines and what follows a
/// # count for nothing. Throws LoadError, with the number of the line.
std::vector<Server> readServerList(const std::string& file);

}
