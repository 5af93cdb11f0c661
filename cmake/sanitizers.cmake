# Sanitizers are a property of the whole build: mixing instrumented and plain objects hides faults.
if(VESK_SANITIZE)
    add_compile_options(-fsanitize=${VESK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${VESK_SANITIZE})
    # The instrumentation hides from g++ that a value is set; it warns of the standard library's own code then.
    add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()
if(VESK_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
