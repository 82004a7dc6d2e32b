#pragma once

#include "tools/vqfleet/CimXml.h"
#include "tools/vqfleet/ServerList.h"

#include <cstddef>
#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace VQ::Tool
{

/// What a server is shown, and what it has to show.
struct Access
{
    std::map<std::string, std::string> passwords; ///< by user
    bool netrc = false;
    std::string netrcFile; ///< empty: ~/.netrc
    std::string caFile;    ///< certificates to trust in place of the system's; empty: the system's
    std::string pin;       ///< for the servers that have none of their own: "sha256//..."; empty: none
    bool insecure = false; ///< believe any certificate
};

struct Pace
{
    unsigned jobs = 32;    ///< machines at a time
    unsigned timeout = 20; ///< seconds for all that one machine is asked
};

/// What is asked of one server, question by question over one connection.
class Conversation
{
public:
    virtual ~Conversation() = default;
    virtual std::optional<Question> next() = 0; ///< nothing: it is over

    /// The body of the answer. Throws NoAnswer where it is none; fail() follows.
    virtual void take(const std::string& body) = 0;

    /// There will be no answer, and no further question.
    virtual void fail(const Failure& failure) = 0;
};

/// The most that all the answers of one machine may have, in bytes.
constexpr std::size_t MaxAnswerSize = 32u << 20;

/// Has the conversations with the servers of the same place in the list, many at a time, and shows how far it is.
/// The failures' codes tell what went wrong without a CIM server to say it: NAME_NOT_FOUND, UNREACHABLE, TIMED_OUT,
/// TLS_FAILED, WRONG_PASSWORD, NOT_A_CIM_SERVER, CUT_OFF, TOO_LARGE, NO_CIM_ANSWER. Throws LoadError where the network
/// library does not work at all.
void converse(const std::vector<Server>& servers, const std::vector<Conversation*>& conversations, const Access& access,
              const Pace& pace);

/// The conversations of this kind with the servers, each made of its server and the facts, after they have ended.
template <class Kind, class... Facts>
std::deque<Kind> ended(const std::vector<Server>& servers, const Access& access, const Pace& pace,
                       const Facts&... facts)
{
    std::deque<Kind> conversations;
    std::vector<Conversation*> all;
    all.reserve(servers.size());
    for (const Server& server : servers)
        all.push_back(&conversations.emplace_back(server, facts...));
    converse(servers, all, access, pace);
    return conversations;
}

}
