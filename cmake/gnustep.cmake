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

# The unit that catches the platform's exceptions: Objective-C proper, for GCC's runtime.
function(corvel_objective_c_object output source)
  get_filename_component(name ${source} NAME)
  set(object ${CMAKE_CURRENT_BINARY_DIR}/${name}.o)
  add_custom_command(
    OUTPUT ${object}
    COMMAND ${CMAKE_C_COMPILER} ${target_flags} -x objective-c -fobjc-runtime=gcc -std=gnu11 -c -O2 -g -fPIC
            -fexceptions -fobjc-exceptions -fvisibility=hidden -fno-omit-frame-pointer -Wall -Wextra -Werror
            -o ${object} ${source}
    DEPENDS ${source}
    COMMENT "Building Objective-C unit ${name}")
  set(${output} ${object} PARENT_SCOPE)
endfunction()
