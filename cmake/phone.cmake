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
