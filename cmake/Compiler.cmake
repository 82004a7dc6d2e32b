# What every target of the project is compiled with.
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 99)
set(CMAKE_C_STANDARD_REQUIRED ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)

set(THREADS_PREFER_PTHREAD_FLAG ON)
find_package(Threads REQUIRED)

# A unique symbol would keep the loader from ever unloading the library that defines it.
add_compile_options($<$<COMPILE_LANG_AND_ID:CXX,GNU>:-fno-gnu-unique>)
# Nobody stands in for single functions of the project's libraries, so a library calls its own without a detour.
add_compile_options(-fno-semantic-interposition)
# Files are read and seeked by 64-bit offsets in both widths.
add_compile_definitions(_FILE_OFFSET_BITS=64)

# Warnings belong to the project's own code only: `target_link_libraries(x PRIVATE vq_warnings)`.
add_library(vq_warnings INTERFACE)
target_compile_options(vq_warnings INTERFACE -Wall -Wextra -Wpedantic
    $<$<BOOL:${VQ_WARNINGS_AS_ERRORS}>:-Werror>)

if(VQ_SANITIZE)
    # Of the debug information the lines, which is what the sanitizers' reports name.
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -g1)
    add_link_options(-fsanitize=address,undefined)
endif()

# Every symbol that a library needs must come from what it is linked with, and be found when the library is loaded: later the
# process would end. The sanitizers' runtimes are linked into the program only, so a sanitized library cannot promise the first.
set(VQ_SHARED_LINK_OPTIONS -Wl,-z,now)
if(NOT VQ_SANITIZE)
    list(APPEND VQ_SHARED_LINK_OPTIONS -Wl,-z,defs)
endif()
