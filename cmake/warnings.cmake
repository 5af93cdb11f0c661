# Every target of ours compiles with these; a warning is an error.
function(vesk_warnings target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wconversion -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Werror)
endfunction()
