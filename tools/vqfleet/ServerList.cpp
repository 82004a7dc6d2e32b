#include "tools/vqfleet/ServerList.h"

#include "tools/program/Errors.h"
#include "tools/program/InputFile.h"

#include <algorithm>
#include <cctype>
#include <curl/curl.h>
#include <memory>
#include <sstream>

namespace VQ::Tool
{

namespace
{
constexpr std::uintmax_t MaxListSize = 16u << 20;
constexpr const char* PinStart = "sha256//";
constexpr const char* Form = "http[s]://[user@]host[:port][/namespace]";

using Url = std::unique_ptr<CURLU, void (*)(CURLU*)>;

// Empty where the URL has no such part.
std::string partOf(const Url& url, CURLUPart part, unsigned flags = 0)
{
    char* text = nullptr;
    if (curl_url_get(url.get(), part, &text, flags) != CURLUE_OK)
        return "";
    std::string result = text;
    curl_free(text);
    return result;
}

bool isNamespace(const std::string& text)
{
    return std::all_of(text.begin(), text.end(), [](char c) {
        return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '-' || c == '/';
    });
}

std::string withoutSlashes(const std::string& path)
{
    const std::size_t begin = path.find_first_not_of('/');
    return begin == std::string::npos ? "" : path.substr(begin, path.find_last_not_of('/') + 1 - begin);
}

bool startsWith(const std::string& text, const char* start)
{
    return text.rfind(start, 0) == 0;
}

// Of a line without its comment; no address where nothing is on it.
Server parseLine(const std::string& line)
{
    Server server;
    std::string name, pin;
    std::istringstream in(line);
    for (std::string word; in >> word;) {
        std::string& place = startsWith(word, PinStart) ? pin : name;
        if (word.find("://") != std::string::npos) {
            if (!server.address.empty())
                throw UsageError("there are two URLs on it");
            server = parseServer(word);
        } else if (!place.empty()) {
            throw UsageError("\"" + word + "\" is one word too many: a line has a URL, and may have a name and a pin");
        } else {
            place = word;
        }
    }
    if (server.address.empty() && !(name.empty() && pin.empty()))
        throw UsageError("there is no URL on it (" + std::string(Form) + ")");
    if (!name.empty())
        server.name = name;
    server.pin = pin;
    return server;
}
}

Server parseServer(const std::string& url)
{
    const Url parts(curl_url(), curl_url_cleanup);
    const bool http = startsWith(url, "http://") || startsWith(url, "https://");
    if (!http || curl_url_set(parts.get(), CURLUPART_URL, url.c_str(), 0) != CURLUE_OK)
        throw UsageError("a server is named by " + std::string(Form) + ", and this is none" +
                         (url.find('@') == std::string::npos ? ": " + url : std::string()));
    Server server;
    server.name = partOf(parts, CURLUPART_HOST);
    if (!partOf(parts, CURLUPART_PASSWORD).empty())
        throw UsageError("a password does not belong into the address of " + server.name +
                         ", where others can read it: --password-file, --netrc, or leave it out to be asked");
    const std::string scheme = partOf(parts, CURLUPART_SCHEME);
    const std::string port = partOf(parts, CURLUPART_PORT);
    server.address = scheme + "://" + server.name + ":" + (!port.empty() ? port : scheme == "https" ? "5989" : "5988");
    server.user = partOf(parts, CURLUPART_USER, CURLU_URLDECODE);
    server.nameSpace = withoutSlashes(partOf(parts, CURLUPART_PATH));
    if (!isNamespace(server.nameSpace) || !partOf(parts, CURLUPART_QUERY).empty())
        throw UsageError("what follows " + server.address + " is not the name of a namespace, as root/cimv2 is");
    if (server.nameSpace.empty())
        server.nameSpace = "root/cimv2";
    return server;
}

std::vector<Server> readServerList(const std::string& file)
{
    std::vector<Server> servers;
    std::istringstream in(readInput(file, MaxListSize, "a list of servers"));
    unsigned number = 0;
    for (std::string line; std::getline(in, line);) {
        ++number;
        try {
            const Server server = parseLine(line.substr(0, line.find('#')));
            if (!server.address.empty())
                servers.push_back(server);
        } catch (const UsageError& error) {
            throw LoadError(file + ", line " + std::to_string(number) + ": " + error.what());
        }
    }
    if (servers.empty())
        throw LoadError(file + " names no server; it has a URL on each line, " + Form);
    return servers;
}

}
