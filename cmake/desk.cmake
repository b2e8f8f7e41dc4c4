# The desk: Linux, GNUstep for Foundation, and the libraries that draw. Here and on the emulated processor alike.
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

find_package(PkgConfig REQUIRED)
pkg_check_modules(CAIRO REQUIRED IMPORTED_TARGET cairo-png pangocairo pangoft2 fontconfig)
pkg_check_modules(FFI REQUIRED IMPORTED_TARGET libffi)
find_package(ZLIB REQUIRED)

# The same arithmetic, and so the same pictures, on every processor.
add_compile_options(-ffp-contract=off)
add_compile_options(-fno-omit-frame-pointer)
# Objective-C as the runtime that is here takes it.
add_compile_options($<$<COMPILE_LANGUAGE:OBJC>:-fobjc-runtime=gcc>)
if(CORVEL_SANITIZE)
  # Calls through untyped implementations are the runtime's way; everything else of UBSan counts.
  add_compile_options(-fsanitize=address,undefined -fno-sanitize=function,vptr -fno-sanitize-recover=undefined)
  add_link_options(-fsanitize=address,undefined)
endif()
# How the lines of the library, and of its headers in its unit tests, are counted: in a file while they are run, for the
# simulator ends at once.
if(CORVEL_COVERAGE)
  set(CORVEL_COUNTED -fprofile-instr-generate -fcoverage-mapping -mllvm -runtime-counter-relocation)
endif()
# What sanitized builds are tested with; others take no notice.
set(CORVEL_SANITIZER_ENVIRONMENT
    "LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0")

# GNUstep Base and the GNU Objective-C runtime. Nothing names their symbols at link time (classes are found by name),
# so the linker must be told to keep them; the runtime's library lies in GCC's own directory, which Clang knows too.
set(target_flags ${CMAKE_CXX_COMPILER_TARGET})
list(TRANSFORM target_flags PREPEND --target=)
if(CMAKE_SYSROOT)
  list(APPEND target_flags --sysroot=${CMAKE_SYSROOT})
endif()
execute_process(COMMAND ${CMAKE_CXX_COMPILER} ${target_flags} -print-file-name=libobjc.so
                OUTPUT_VARIABLE CORVEL_OBJC_LIBRARY OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
add_library(gnustep INTERFACE)
target_link_options(gnustep INTERFACE -Wl,--no-as-needed)
target_link_libraries(gnustep INTERFACE gnustep-base ${CORVEL_OBJC_LIBRARY})
