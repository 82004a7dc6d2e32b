#include "tests/packaging/Mof.h"

#include <cctype>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace
{
// Words, punctuation characters and whole quoted texts, in their order; comments are left out.
class Tokens
{
public:
    explicit Tokens(const std::string& file)
    {
        std::ifstream in(file);
        if (!in)
            throw std::runtime_error("cannot read " + file);
        std::stringstream all;
        all << in.rdbuf();
        split(all.str());
    }

    bool atEnd() const { return _position >= _tokens.size(); }
    const std::string& peek() const
    {
        if (atEnd())
            throw std::runtime_error("the MOF ends too early");
        return _tokens[_position];
    }
    std::string next()
    {
        std::string token = peek();
        ++_position;
        return token;
    }
    void expect(const std::string& token)
    {
        if (next() != token)
            throw std::runtime_error("expected " + token + " in the MOF, found " + _tokens[_position - 1]);
    }

private:
    static bool isWord(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }

    void split(const std::string& text)
    {
        for (std::size_t i = 0; i < text.size();) {
            std::size_t end = i + 1;
            if (std::isspace(static_cast<unsigned char>(text[i]))) {
                i = end;
                continue;
            }
            if (text.compare(i, 2, "//") == 0) {
                i = text.find('\n', i);
                continue;
            }
            if (text[i] == '"') {
                while (text.at(end) != '"')
                    end += text[end] == '\\' ? 2 : 1;
                ++end;
            } else if (isWord(text[i]))
                while (end < text.size() && isWord(text[end]))
                    ++end;
            _tokens.push_back(text.substr(i, end - i));
            i = end;
        }
    }

    std::vector<std::string> _tokens;
    std::size_t _position = 0;
};

std::string withoutQuotes(const std::string& token)
{
    return token.front() == '"' ? token.substr(1, token.size() - 2) : token;
}

using Qualifiers = std::map<std::string, std::vector<std::string>>;

// The qualifier list at the front of a declaration; texts that follow each other in parentheses are several.
Qualifiers readQualifiers(Tokens& tokens)
{
    Qualifiers qualifiers;
    tokens.expect("[");
    for (std::string name = tokens.next(); name != "]"; name = tokens.next()) {
        if (name == ",")
            continue;
        std::vector<std::string>& values = qualifiers[name];
        if (tokens.peek() != "(" && tokens.peek() != "{")
            continue;
        const std::string end = tokens.next() == "(" ? ")" : "}";
        for (std::string token = tokens.next(); token != end; token = tokens.next())
            if (token != ",")
                values.push_back(withoutQuotes(token));
    }
    return qualifiers;
}

void readMember(Tokens& tokens, MofClass& into)
{
    MofProperty property;
    property.qualifiers = readQualifiers(tokens);
    property.key = property.qualifiers.count("Key") != 0;
    property.type = tokens.next();
    property.name = tokens.next();
    if (tokens.peek() == "(") {
        tokens.expect("(");
        tokens.expect(")");
        into.methods.emplace_back(property.name, property.type);
    } else {
        if (tokens.peek() == "[") {
            tokens.expect("[");
            tokens.expect("]");
            property.type += "[]";
        }
        into.properties.push_back(property);
    }
    tokens.expect(";");
}

}

std::vector<MofClass> readMofClasses(const std::string& file)
{
    Tokens tokens(file);
    std::vector<MofClass> classes;
    while (!tokens.atEnd()) {
        MofClass read;
        readQualifiers(tokens);
        tokens.expect("class");
        read.name = tokens.next();
        tokens.expect(":");
        read.superclass = tokens.next();
        tokens.expect("{");
        while (tokens.peek() != "}")
            readMember(tokens, read);
        tokens.expect("}");
        tokens.expect(";");
        classes.push_back(read);
    }
    return classes;
}

std::vector<MofInstance> readMofInstances(const std::string& file)
{
    Tokens tokens(file);
    std::vector<MofInstance> instances;
    while (!tokens.atEnd()) {
        MofInstance read;
        tokens.expect("instance");
        tokens.expect("of");
        read.className = tokens.next();
        tokens.expect("{");
        while (tokens.peek() != "}") {
            const std::string name = tokens.next();
            tokens.expect("=");
            std::string value;
            for (std::string token = tokens.next(); token != ";"; token = tokens.next())
                value += withoutQuotes(token);
            read.values[name] = value;
        }
        tokens.expect("}");
        tokens.expect(";");
        instances.push_back(read);
    }
    return instances;
}
