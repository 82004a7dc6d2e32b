#include "tools/vqinventory/InputFile.h"

#include "tools/vqinventory/SharedLibrary.h"

#include <filesystem>

namespace VQ::Tool
{

namespace fs = std::filesystem;

std::string fullPath(const std::string& file)
{
    if (file.empty())
        return file;
    std::error_code error;
    const fs::path path = fs::absolute(file, error);
    if (error)
        throw LoadError("cannot tell where " + file + " is, because the working directory is gone (" + error.message() +
                        "); write its full path");
    return path;
}

std::string realPath(const std::string& file)
{
    std::error_code error;
    const fs::path path = fs::canonical(file, error);
    return error ? fullPath(file) : path.string();
}

std::string unfitReason(const std::string& file, std::uintmax_t largest)
{
    std::error_code error;
    const fs::file_status status = fs::status(file, error);
    if (error || !fs::exists(status))
        return "";
    if (!fs::is_regular_file(status))
        return "it must be a regular file";
    const std::uintmax_t size = fs::file_size(file, error);
    if (!error && size > largest)
        return "it has " + std::to_string(size) + " bytes, and no more than " + std::to_string(largest) +
               " are accepted";
    return "";
}

}
