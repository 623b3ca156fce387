# zv_set_warnings(target): the project's warning level, warnings as errors.
function(zv_set_warnings target)
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /WX /utf-8 /permissive-)
    else()
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Werror)
        # g++ 12 reports overlapping copies inside std::string that cannot happen when it inlines
        # short assignments at -O2 and above (GCC bug 105651); newer compilers do not.
        if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
            target_compile_options(${target} PRIVATE -Wno-restrict)
        endif()
    endif()
endfunction()
