# The options every target of ours is built with: warnings are errors, and the sanitizers on request.
add_library(marquill_options INTERFACE)
if(MSVC)
  message(FATAL_ERROR "Windows' own compiler has not been tried; build with MinGW-w64 (docs/PORTING.md).")
endif()
target_compile_options(
  marquill_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Werror -fno-omit-frame-pointer
                             $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>
                             # libstdc++'s own stable sorting calls what it marks as deprecated.
                             $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>)
target_compile_definitions(marquill_options INTERFACE QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_NO_KEYWORDS
                                                      QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
target_include_directories(marquill_options INTERFACE ${CMAKE_SOURCE_DIR}/src)
if(MARQUILL_SANITIZE)
  # With its sanitizers on, g++ 12 takes members of a variant that is not in use for uninitialised ones.
  target_compile_options(marquill_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                    $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(marquill_options INTERFACE -fsanitize=address,undefined)
endif()
if(MARQUILL_FUZZ)
  target_compile_options(marquill_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
