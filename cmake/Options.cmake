# tolvanite_options: what every target of this project is compiled with. It is no part of the
# installed package, so a host keeps its own flags.
add_library(tolvanite_options INTERFACE)
target_compile_options(tolvanite_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)

# Line tables are enough for a readable stack trace, and keep the build folders small.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG -g1")
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(CCACHE ccache)
if(CCACHE AND PROJECT_IS_TOP_LEVEL AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE}")
endif()

if(TOLVANITE_SANITIZE)
  # For the whole project: a sanitizer has to see the library and its users alike.
  add_compile_options(-fsanitize=${TOLVANITE_SANITIZE} -fno-sanitize-recover=undefined
    -fno-omit-frame-pointer)
  # GCC takes the sanitizers' own code for uses of what is not initialised.
  add_compile_options(-Wno-maybe-uninitialized)
  add_link_options(-fsanitize=${TOLVANITE_SANITIZE})
endif()
