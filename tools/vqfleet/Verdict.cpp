#include "tools/vqfleet/Verdict.h"

#include <cstring>

namespace VQ::Tool
{

namespace
{
std::string inBrackets(const std::string& text)
{
    return text.empty() ? "" : " (" + text + ")";
}

Failure deniedBy(const Server& server, const Access& access)
{
    if (server.user.empty() && !access.netrc)
        return {"WRONG_PASSWORD", server.address + " wants a user and a password: user@ in its address, or --netrc"};
    return {"WRONG_PASSWORD",
            server.address + " does not accept the password" + (server.user.empty() ? "" : " of " + server.user)};
}

Failure refusedWith(const Ending& ending, const Server& server, const Access& access)
{
    const std::string status = "HTTP status " + std::to_string(ending.status);
    if (ending.status == 401)
        return deniedBy(server, access);
    if (ending.status == 403)
        return {"WRONG_PASSWORD", server.address + " does not let this user in (" + status + ")"};
    if (ending.status >= 300 && ending.status < 400)
        return {"NOT_A_CIM_SERVER", server.address + " sends to another address (" + status +
                                        "), which is not followed: name the server itself"};
    if (!ending.cimError.empty())
        return {"NOT_A_CIM_SERVER", server.address + " refuses the question: " + ending.cimError + " (" + status + ")"};
    return {"NOT_A_CIM_SERVER", server.address + " is no CIM server, or not at this port (" + status + ")"};
}

Failure tlsFailed(const Ending& ending, const Server& server)
{
    if (ending.code == CURLE_SSL_PINNEDPUBKEYNOTMATCH)
        return {"TLS_FAILED", server.address + " has another public key than the pin says: it got a new one, or "
                                               "another machine answers in its place"};
    if (ending.code == CURLE_SSL_CONNECT_ERROR)
        return {"TLS_FAILED", server.address + " does not speak TLS as this program does" + inBrackets(ending.detail) +
                                  "; http:// and port 5988 are without TLS"};
    return {"TLS_FAILED", "the certificate of " + server.address + " is not trusted" + inBrackets(ending.detail) +
                              "; --cacert FILE names a certificate to trust, --pin sha256//... the server's own key"};
}
}

Failure verdictOn(const Ending& ending, const Server& server, const Access& access, const Pace& pace)
{
    if (ending.tooLarge)
        return {"TOO_LARGE", server.address + " sends more than an inventory can have"};
    switch (ending.code) {
    case CURLE_OK:
    case CURLE_HTTP_RETURNED_ERROR:
        return refusedWith(ending, server, access);
    case CURLE_COULDNT_RESOLVE_HOST:
        return {"NAME_NOT_FOUND", "no machine has the name in " + server.address};
    case CURLE_COULDNT_CONNECT:
        return {"UNREACHABLE", "nothing answers at " + server.address +
                                   inBrackets(ending.systemError ? std::strerror(static_cast<int>(ending.systemError))
                                                                 : ending.detail)};
    case CURLE_OPERATION_TIMEDOUT:
        return {"TIMED_OUT", server.address + " did not answer within " + std::to_string(pace.timeout) +
                                 " s (--timeout gives it longer)"};
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_PINNEDPUBKEYNOTMATCH:
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_SSL_CACERT_BADFILE:
        return tlsFailed(ending, server);
    case CURLE_PARTIAL_FILE:
    case CURLE_GOT_NOTHING:
    case CURLE_RECV_ERROR:
    case CURLE_SEND_ERROR:
        return {"CUT_OFF", server.address + " ended the connection in the middle of its answer" +
                               inBrackets(ending.detail) + (server.isTls() ? "" : "; does the port want https://?")};
    default:
        return {"NOT_A_CIM_SERVER",
                server.address + " does not answer as a CIM server does" + inBrackets(ending.detail)};
    }
}

std::string remedyOf(const Failure& failure, const Server& server)
{
    if (failure.code == "CIM_ERR_INVALID_NAMESPACE")
        return "; " + server.address + " has no such namespace: what stands behind the port in its address names it";
    if (failure.code == "CIM_ERR_INVALID_CLASS" || failure.code == "CIM_ERR_NOT_SUPPORTED")
        return "; the module is not registered there for this class (vq-register on that machine)";
    return "";
}

}
