#include "tools/core/ObjectPath.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <strings.h>

namespace VQ::Tool
{

namespace
{
bool isNameCharacter(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || (c & 0x80) != 0;
}

std::string takeName(const std::string& text, std::size_t& at)
{
    const std::size_t begin = at;
    while (at < text.size() && isNameCharacter(text[at]))
        ++at;
    return text.substr(begin, at - begin);
}

// A text in quotes, with \" and \\ in it.
std::optional<Scalar> takeText(const std::string& text, std::size_t& at)
{
    std::string value;
    for (++at; at < text.size() && text[at] != '"'; ++at) {
        if (text[at] == '\\' && at + 1 < text.size())
            ++at;
        value += text[at];
    }
    if (at == text.size())
        return std::nullopt;
    ++at;
    return value;
}

// A number or a truth value, to the next comma.
std::optional<Scalar> takeWord(const std::string& text, std::size_t& at)
{
    const std::size_t begin = at;
    at = std::min(text.find(',', at), text.size());
    const std::string word = text.substr(begin, at - begin);
    if (strcasecmp(word.c_str(), "true") == 0 || strcasecmp(word.c_str(), "false") == 0)
        return strcasecmp(word.c_str(), "true") == 0;
    const std::size_t digits = word.find_first_not_of("0123456789", word.compare(0, 1, "-") == 0 ? 1 : 0);
    if (word.empty() || word == "-" || digits != std::string::npos)
        return std::nullopt;
    if (word[0] == '-')
        return static_cast<std::int64_t>(std::strtoll(word.c_str(), nullptr, 10));
    return static_cast<std::uint64_t>(std::strtoull(word.c_str(), nullptr, 10));
}
}

std::string withoutServer(const std::string& path)
{
    // The class ends at the first dot behind the namespace; a host may have dots, and a value any character.
    const std::size_t end = std::min(path.find('='), path.size());
    const std::size_t slash = path.substr(0, end).find('/');
    if (slash == std::string::npos)
        return path;
    const std::size_t colon = path.substr(0, end).rfind(':');
    return colon == std::string::npos ? path : path.substr(colon + 1);
}

std::optional<Instance> parsePath(const std::string& path)
{
    const std::string local = withoutServer(path);
    Instance instance;
    instance.path = local;
    std::size_t at = 0;
    instance.className = takeName(local, at);
    if (instance.className.empty())
        return std::nullopt;
    for (char separator = '.'; at < local.size(); separator = ',') {
        if (local[at++] != separator)
            return std::nullopt;
        const std::string name = takeName(local, at);
        if (name.empty() || at + 1 >= local.size() || local[at++] != '=')
            return std::nullopt;
        const std::optional<Scalar> value = local[at] == '"' ? takeText(local, at) : takeWord(local, at);
        if (!value)
            return std::nullopt;
        instance.keys.push_back({name, {false, false, {*value}}});
    }
    return instance;
}

bool sameObject(const Instance& one, const Instance& other)
{
    if (strcasecmp(one.className.c_str(), other.className.c_str()) != 0 || one.keys.size() != other.keys.size())
        return false;
    return std::all_of(one.keys.begin(), one.keys.end(), [&other](const NamedValue& key) {
        return std::any_of(other.keys.begin(), other.keys.end(), [&key](const NamedValue& candidate) {
            return strcasecmp(key.name.c_str(), candidate.name.c_str()) == 0 && key.value == candidate.value;
        });
    });
}

bool lostItsQuotes(const std::string& path)
{
    if (path.find('"') != std::string::npos || parsePath(path))
        return false;
    const std::string local = withoutServer(path);
    const std::size_t equals = local.find('=');
    if (equals == std::string::npos)
        return false;
    std::size_t at = 0;
    return !takeName(local, at).empty() && at < equals && local[at] == '.' && equals + 1 < local.size();
}

}
