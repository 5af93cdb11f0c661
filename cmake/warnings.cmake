# Every target of ours compiles with these; a warning is an error.
function(vesk_warnings target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wconversion -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Werror
        # g++ 12 sees overlapping copies inside std::string's own operators when it optimises (GCC bug 105651).
        $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
endfunction()
