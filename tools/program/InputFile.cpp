#include "tools/program/InputFile.h"

#include "tools/program/Errors.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <zlib.h>

namespace VQ::Tool
{

namespace fs = std::filesystem;

namespace
{
struct Close
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<std::FILE, Close>;

std::string readAll(std::FILE* file, const std::string& name, std::uintmax_t largest)
{
    std::string bytes;
    char block[65536];
    for (std::size_t got; (got = std::fread(block, 1, sizeof block, file)) > 0;) {
        bytes.append(block, got);
        if (bytes.size() > largest)
            throw LoadError(name + " has more than the " + std::to_string(largest) + " bytes that are accepted");
    }
    if (std::ferror(file))
        throw LoadError("cannot read " + name + ": " + std::strerror(errno));
    return bytes;
}

// A gzip file is one member after the other.
std::string unpacked(const std::string& packed, const std::string& name, std::uintmax_t largest)
{
    z_stream stream{};
    if (inflateInit2(&stream, 16 + MAX_WBITS) != Z_OK)
        throw LoadError("cannot unpack " + name + ": no memory");
    const std::unique_ptr<z_stream, int (*)(z_stream*)> end(&stream, inflateEnd);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream.avail_in = static_cast<uInt>(packed.size());
    std::string bytes;
    char block[65536];
    for (int state = Z_OK; state != Z_STREAM_END || stream.avail_in > 0;) {
        if (state == Z_STREAM_END)
            inflateReset(&stream);
        stream.next_out = reinterpret_cast<Bytef*>(block);
        stream.avail_out = sizeof block;
        state = inflate(&stream, Z_NO_FLUSH);
        if (state != Z_OK && state != Z_STREAM_END)
            throw LoadError("cannot unpack " + name + ": it is damaged, or not all of it is there");
        bytes.append(block, sizeof block - stream.avail_out);
        if (bytes.size() > largest)
            throw LoadError(name + " unpacks to more than the " + std::to_string(largest) + " bytes that are accepted");
    }
    return bytes;
}
}

std::string fullPath(const std::string& file)
{
    if (file.empty() || file == StandardInput)
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

std::string readInput(const std::string& file, std::uintmax_t largest, const char* form)
{
    const bool standardInput = file == StandardInput;
    const std::string unfit = standardInput ? "" : unfitReason(file, largest);
    if (!unfit.empty())
        throw LoadError(file + " is not " + form + ": " + unfit);
    const OpenFile opened(standardInput ? nullptr : std::fopen(file.c_str(), "rbe"));
    if (!standardInput && !opened)
        throw LoadError("cannot read " + file + ": " + std::strerror(errno));
    std::FILE* in = standardInput ? stdin : opened.get();
    const std::string name = standardInput ? "standard input" : file;
    std::string bytes = readAll(in, name, largest);
    return bytes.compare(0, 2, "\x1F\x8B") == 0 ? unpacked(bytes, name, largest) : bytes;
}

std::string machineNameOf(const std::string& file)
{
    if (file == StandardInput)
        return "standard input";
    fs::path name = fs::path(file).filename();
    if (name.extension() == ".gz")
        name = name.stem();
    return name.stem().empty() ? file : name.stem().string();
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
