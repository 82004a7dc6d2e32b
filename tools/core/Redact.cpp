#include "tools/core/Redact.h"

#include "tools/knowledge/Placeholders.h"
#include "tools/knowledge/Roles.h"

#include <algorithm>
#include <cctype>

namespace VQ::Tool
{

namespace
{
// Short texts are looked for as whole values only: "1", or a host named "pci", stands within much else.
constexpr std::size_t ShortestWithin = 4;

bool isLetterOrDigit(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) != 0;
}

// Replaces it where it stands as a word of its own.
void replaceWord(std::string& text, const std::string& word, const std::string& by)
{
    for (std::size_t at = text.find(word); at != std::string::npos;) {
        const std::size_t end = at + word.size();
        const bool begins = at == 0 || !isLetterOrDigit(text[at - 1]) || !isLetterOrDigit(word.front());
        const bool ends = end == text.size() || !isLetterOrDigit(text[end]) || !isLetterOrDigit(word.back());
        if (begins && ends)
            text.replace(at, word.size(), by);
        at = text.find(word, at + (begins && ends ? by.size() : 1));
    }
}

void hideWithin(std::string& text, const std::map<std::string, std::string>& secrets)
{
    const auto whole = secrets.find(text);
    if (whole != secrets.end()) {
        text = whole->second;
        return;
    }
    // The longest first: one may be a part of another.
    std::vector<const std::pair<const std::string, std::string>*> inOrder;
    for (const auto& secret : secrets)
        if (secret.first.size() >= ShortestWithin && text.find(secret.first) != std::string::npos)
            inOrder.push_back(&secret);
    std::sort(inOrder.begin(), inOrder.end(),
              [](const auto* one, const auto* other) { return one->first.size() > other->first.size(); });
    for (const auto* secret : inOrder)
        replaceWord(text, secret->first, secret->second);
}

// As a path writes it.
std::string inPath(const std::string& text)
{
    std::string result;
    for (const char c : text) {
        if (c == '"' || c == '\\')
            result += '\\';
        result += c;
    }
    return result;
}

void redactInstance(Instance& instance, const std::map<std::string, std::string>& secrets)
{
    const auto hide = [&](NamedValue& named) {
        for (Scalar& element : named.value.elements)
            if (auto* text = std::get_if<std::string>(&element))
                hideWithin(*text, secrets);
    };
    for (const auto& [secret, standIn] : secrets) // the short ones, too, where they are a whole value
        replaceWord(instance.path, '"' + secret + '"', '"' + standIn + '"');
    hideWithin(instance.path, secrets);
    for (NamedValue& key : instance.keys)
        hide(key);
    for (Property& property : instance.properties)
        hide(property);
}

void redactMachine(Machine& machine, const std::map<std::string, std::string>& secrets)
{
    hideWithin(machine.name, secrets);
    hideWithin(machine.askedMachine, secrets);
    hideWithin(machine.source.place, secrets);
    for (std::string& note : machine.notes)
        hideWithin(note, secrets);
    for (Answer& answer : machine.answers) {
        if (answer.failure)
            hideWithin(answer.failure->text, secrets);
        for (Instance& instance : answer.instances)
            redactInstance(instance, secrets);
    }
}

// What a failure tells of a server: https://web1:5989 of https://web1:5989/root/cimv2.
std::string addressIn(const std::string& place)
{
    const std::size_t host = place.find("://");
    return host == std::string::npos ? "" : place.substr(0, place.find('/', host + 3));
}

std::string hostIn(const std::string& place)
{
    const std::string address = addressIn(place);
    const std::size_t begin = address.find("://");
    return begin == std::string::npos ? "" : address.substr(begin + 3, address.rfind(':') - begin - 3);
}

const std::string* textOf(const Value& value)
{
    return value.elements.size() == 1 ? std::get_if<std::string>(&value.elements.front()) : nullptr;
}
}

const std::string& Redactor::standIn(const std::string& secret, Kind kind)
{
    static constexpr const char* Names[Kinds] = {"serial number", "host", "place"};
    auto& known = _standIns[kind];
    const auto found = known.find(secret);
    if (found != known.end())
        return found->second;
    const std::string name = "(" + std::string(Names[kind]) + " " + std::to_string(known.size() + 1) + ")";
    return known.emplace(secret, name).first->second;
}

Redactor::Secrets Redactor::secretsOf(const Machine& machine)
{
    Secrets secrets;
    const auto add = [&](const std::string& text, Kind kind) {
        if (!withoutPlaceholder(text).empty())
            secrets.emplace(text, standIn(text, kind));
        const std::string trimmed = withoutPlaceholder(text);
        if (!trimmed.empty())
            secrets.emplace(trimmed, standIn(text, kind));
        if (inPath(text) != text)
            secrets.emplace(inPath(text), standIn(text, kind));
    };
    add(machine.name, Host);
    add(machine.askedMachine, Host);
    add(machine.source.place, Place);
    if (machine.source.kind == Source::Server) {
        add(addressIn(machine.source.place), Place);
        add(hostIn(machine.source.place), Host);
    }
    for (const Answer& answer : machine.answers)
        for (const Instance& instance : answer.instances)
            for (const Property& property : instance.properties)
                if (const std::string* text = textOf(property.value)) {
                    if (isHostName(answer.className, property.name))
                        add(*text, Host);
                    else if (isSerial(property.name))
                        add(*text, Serial);
                }
    for (const Answer& answer : machine.answers) // names only
        for (const Instance& instance : answer.instances)
            for (const NamedValue& key : instance.keys)
                if (const std::string* text = textOf(key.value))
                    if (isHostName(answer.className, key.name))
                        add(*text, Host);
    return secrets;
}

void Redactor::redact(std::vector<Machine>& machines)
{
    for (Machine& machine : machines)
        redactMachine(machine, secretsOf(machine));
}

}
