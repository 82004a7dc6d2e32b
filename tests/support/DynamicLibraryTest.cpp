#include "support/common/DynamicLibrary.h"

#include "tests/testing/ServedTable.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <new>
#include <string>
#include <unistd.h>

using VQ::DynamicLibrary;

namespace
{
// A library of the test's own, with one function that returns 42.
const std::string Library = VQ_ANSWER_LIBRARY;

std::wstring wide(const std::string& ascii)
{
    return std::wstring(ascii.begin(), ascii.end());
}

std::wstring libraryPath()
{
    return wide(Library);
}

bool isLoaded()
{
    void* handle = dlopen(Library.c_str(), RTLD_LAZY | RTLD_NOLOAD);
    if (handle)
        dlclose(handle);
    return handle != nullptr;
}

bool memoryLacks = false;
}

// In place of the C library's, for the support library too: as it is where the loader gets no memory.
extern "C" __attribute__((visibility("default"))) void* dlopen(const char* file, int mode) noexcept
{
    using Open = void* (*)(const char*, int);
    static const auto next = reinterpret_cast<Open>(dlsym(RTLD_NEXT, "dlopen"));
    if (!memoryLacks)
        return next(file, mode);
    errno = ENOMEM;
    return nullptr;
}

namespace
{
// While it lives, another directory is the working directory.
class WorkingDirectory
{
public:
    explicit WorkingDirectory(const std::string& directory)
    {
        if (!getcwd(_before, sizeof _before) || chdir(directory.c_str()) != 0)
            throw std::runtime_error("cannot change to " + directory);
    }
    ~WorkingDirectory() { EXPECT_EQ(chdir(_before), 0); }

private:
    char _before[PATH_MAX] = {};
};
}

TEST(DynamicLibrary, NamingALibraryLoadsNothing)
{
    const DynamicLibrary library(libraryPath());
    EXPECT_FALSE(isLoaded());
}

TEST(DynamicLibrary, LoadsALibraryAndFindsItsFunction)
{
    DynamicLibrary library(libraryPath());
    ASSERT_TRUE(library.load());
    const auto answer = reinterpret_cast<int (*)()>(library.getSymbol(L"vq_answer"));
    ASSERT_NE(answer, nullptr);
    EXPECT_EQ(answer(), 42);
    library.unload();
}

TEST(DynamicLibrary, AbsentSymbolIsNull)
{
    DynamicLibrary library(libraryPath());
    ASSERT_TRUE(library.load());
    EXPECT_EQ(library.getSymbol(L"vq_no_such_symbol"), nullptr);
    EXPECT_EQ(library.getSymbol(L""), nullptr);
}

TEST(DynamicLibrary, NoSymbolIsFoundInALibraryThatIsNotLoaded)
{
    DynamicLibrary library(libraryPath());
    EXPECT_EQ(library.getSymbol(L"vq_answer"), nullptr);
    EXPECT_EQ(library.getSymbol(L"malloc"), nullptr);
    ASSERT_TRUE(library.load());
    library.unload();
    EXPECT_EQ(library.getSymbol(L"vq_answer"), nullptr);
}

TEST(DynamicLibrary, UnloadReleasesTheLibrary)
{
    DynamicLibrary library(libraryPath());
    ASSERT_TRUE(library.load());
    EXPECT_TRUE(isLoaded());
    library.unload();
    EXPECT_FALSE(isLoaded());
}

TEST(DynamicLibrary, DestructionReleasesTheLibrary)
{
    {
        DynamicLibrary library(libraryPath());
        ASSERT_TRUE(library.load());
        EXPECT_TRUE(isLoaded());
    }
    EXPECT_FALSE(isLoaded());
}

TEST(DynamicLibrary, LoadsAndUnloadsAgainAndAgain)
{
    DynamicLibrary library(libraryPath());
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(library.load());
        ASSERT_NE(library.getSymbol(L"vq_answer"), nullptr);
        library.unload();
        ASSERT_FALSE(isLoaded());
    }
}

TEST(DynamicLibrary, LoadingTwiceHoldsTheLibraryOnce)
{
    DynamicLibrary library(libraryPath());
    ASSERT_TRUE(library.load());
    ASSERT_TRUE(library.load());
    library.unload();
    EXPECT_FALSE(isLoaded());
}

TEST(DynamicLibrary, UnloadingTwiceIsHarmlessAndKeepsAnothersHold)
{
    DynamicLibrary other(libraryPath());
    ASSERT_TRUE(other.load());
    DynamicLibrary library(libraryPath());
    ASSERT_TRUE(library.load());
    library.unload();
    library.unload();
    EXPECT_TRUE(isLoaded());
    EXPECT_NE(other.getSymbol(L"vq_answer"), nullptr);
}

TEST(DynamicLibrary, MissingFileIsNotLoaded)
{
    DynamicLibrary library(L"/no/such/directory/libmissing.so");
    EXPECT_FALSE(library.load());
    EXPECT_FALSE(library.load());
    EXPECT_EQ(library.getSymbol(L"vq_answer"), nullptr);
    library.unload();
}

TEST(DynamicLibrary, FileThatIsNoLibraryIsNotLoaded)
{
    const std::string file = writeTemporaryFile({'n', 'o', ' ', 'l', 'i', 'b', 'r', 'a', 'r', 'y'});
    DynamicLibrary library(wide(file));
    EXPECT_FALSE(library.load());
    std::remove(file.c_str());
}

TEST(DynamicLibrary, DirectoryIsNotLoaded)
{
    DynamicLibrary library(wide(testing::TempDir()));
    EXPECT_FALSE(library.load());
}

TEST(DynamicLibrary, LackOfMemoryIsNoMissingFile)
{
    DynamicLibrary library(libraryPath());
    memoryLacks = true;
    EXPECT_THROW(library.load(), std::bad_alloc);
    EXPECT_THROW(VQ::openLibrary(Library.c_str()), std::bad_alloc);
    memoryLacks = false;
    EXPECT_FALSE(isLoaded());
    EXPECT_TRUE(library.load());
}

TEST(DynamicLibrary, MissingFileIsNoLackOfMemoryWhateverFailedBefore)
{
    errno = ENOMEM;
    EXPECT_FALSE(DynamicLibrary(L"/no/such/directory/libmissing.so").load());
}

TEST(DynamicLibrary, PathWithASlashIsRelativeToTheWorkingDirectory)
{
    const std::size_t slash = Library.rfind('/');
    const WorkingDirectory there(Library.substr(0, slash));
    DynamicLibrary library(wide("." + Library.substr(slash)));
    EXPECT_TRUE(library.load());
}

TEST(DynamicLibrary, RelativePathIsNotFoundFromElsewhere)
{
    const WorkingDirectory root("/");
    DynamicLibrary library(wide("." + Library.substr(Library.rfind('/'))));
    EXPECT_FALSE(library.load());
}

TEST(DynamicLibrary, NameWithoutASlashIsSearchedByTheLoaderAndNotInTheWorkingDirectory)
{
    const std::size_t slash = Library.rfind('/');
    const WorkingDirectory there(Library.substr(0, slash));
    DynamicLibrary library(wide(Library.substr(slash + 1)));
    EXPECT_FALSE(library.load());
}
