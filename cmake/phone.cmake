# How the phone's library is compiled.
set(musl /usr/include/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-musl)
foreach(needed ${musl}/string.h /usr/lib/llvm-19/include/c++/v1/array)
  if(NOT EXISTS ${needed})
    message(FATAL_ERROR "${needed} is missing; tools/setup phone installs it")
  endif()
endforeach()

# The C headers serve as declarations only; they come after the compiler's own.
add_compile_options(-nostdlibinc -idirafter ${musl})
# Our configuration of the C++ library shadows the packaged one. Statics with destructors register none: the library
# lives as long as its process, and nothing but the one constructor may run at load.
set(CMAKE_CXX_STANDARD_INCLUDE_DIRECTORIES ${CMAKE_SOURCE_DIR}/ios/libcxx /usr/lib/llvm-19/include/c++/v1)
foreach(option -nostdinc++ -fno-rtti -fno-threadsafe-statics -fno-c++-static-destructors)
  add_compile_options($<$<COMPILE_LANGUAGE:CXX>:${option}>)
endforeach()
add_compile_options(-fexceptions -fno-stack-protector)
# The bytes do not depend on where the checkout lies, nor on whether ccache has made its paths relative.
add_compile_options(-fdebug-compilation-dir=. -ffile-prefix-map=${CMAKE_SOURCE_DIR}/= -ffile-prefix-map=../../=)

# How it is linked, but for its name and its parts.
# A symbol that nothing defines must stand in a stub, under the library that exports it on iOS 15.
# -no_encryption: only what a store encrypts needs a page of its own for the load commands.
# -headerpad (hexadecimal): room to lengthen the install name to the rootless path.
# ZERO_AR_DATE: the times of the object files stay out of the debug map.
# --icf=all: what templates make several times alike is kept once; nothing compares the addresses of functions.
set(CORVEL_LINK ${CMAKE_COMMAND} -E env ZERO_AR_DATE=1 ld64.lld-19 -arch arm64 -platform_version ios 15.0 15.0 -dylib
                -adhoc_codesign -dead_strip --icf=all -fatal_warnings -no_encryption -headerpad 40
                -current_version ${PROJECT_VERSION} -compatibility_version 1.0)
