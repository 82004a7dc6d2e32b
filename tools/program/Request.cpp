#include "tools/program/Request.h"

#include "tools/core/ObjectPath.h"
#include "tools/knowledge/Classes.h"

#include <algorithm>
#include <strings.h>

namespace VQ::Tool
{

namespace
{
const Answer* answerOf(const Machine& machine, const std::string& className)
{
    for (const Answer& answer : machine.answers)
        if (strcasecmp(answer.className.c_str(), className.c_str()) == 0)
            return &answer;
    return nullptr;
}

Answer notThere(const std::string& className, const char* code, const std::string& text)
{
    return {className, {}, Failure{code, text}};
}

void choosePath(Machine& machine, const std::string& text)
{
    const std::optional<Instance> path = parsePath(text);
    const std::string className = canonicalClassName(path ? path->className : text);
    const Answer* answer = answerOf(machine, className);
    Answer found = notThere(className, "CIM_ERR_NOT_FOUND", "no such instance: " + text);
    if (answer && path)
        for (const Instance& instance : answer->instances)
            if (found.instances.empty() && sameObject(*path, instance))
                found = {className, {instance}, {}, answer->ofAskedMachine};
    machine.answers = {found};
}

void chooseClasses(Machine& machine, const std::vector<std::string>& classes)
{
    std::vector<Answer> answers;
    for (const std::string& className : classes) {
        const Answer* answer = answerOf(machine, className);
        answers.push_back(
            answer ? *answer
                   : notThere(className, "CIM_ERR_INVALID_CLASS",
                              findClass(className) ? "not among the saved answers" : classAdvice(className)));
    }
    machine.answers = std::move(answers);
}

void dropProperties(Machine& machine)
{
    for (Answer& answer : machine.answers)
        for (Instance& instance : answer.instances)
            instance.properties.clear();
}
}

std::vector<std::string> classesOf(const Request& request)
{
    if (!request.classes.empty())
        return request.classes;
    std::vector<std::string> all;
    for (const ClassInfo& served : servedClasses())
        all.emplace_back(served.name);
    return all;
}

std::string classAdvice(const std::string& className)
{
    std::string advice = "not served; ";
    if (const ClassInfo* meant = similarClass(className))
        advice += "did you mean " + std::string(meant->name) + "? ";
    advice += "the classes are";
    const char* separator = " ";
    for (const ClassInfo& served : servedClasses()) {
        advice += separator + std::string(served.name);
        separator = ", ";
    }
    return advice;
}

std::vector<Machine> chosen(std::vector<Machine> machines, const Request& request)
{
    for (Machine& machine : machines) {
        if (request.kind == Request::Get)
            choosePath(machine, request.path);
        else if (!request.classes.empty())
            chooseClasses(machine, request.classes);
        if (request.kind == Request::Names)
            dropProperties(machine);
    }
    return machines;
}

}
