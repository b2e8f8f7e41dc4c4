# arm64 iOS 15 by Debian's own clang. CMake's platforms of that kind want an SDK and Apple's tools, so this one is none
# of them: cmake/phone.cmake says how to compile, ios/CMakeLists.txt how to link.
set(CMAKE_SYSTEM_NAME Generic)
set(CMAKE_SYSTEM_PROCESSOR arm64)
set(CMAKE_CXX_COMPILER_TARGET arm64-apple-ios15.0)
set(CMAKE_OBJC_COMPILER_TARGET arm64-apple-ios15.0)
# Nothing can be linked without the stubs.
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
