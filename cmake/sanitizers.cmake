# Sanitizers are a property of the whole build: mixing instrumented and plain objects hides faults.
if(VESK_SANITIZE)
    add_compile_options(-fsanitize=${VESK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${VESK_SANITIZE})
endif()
if(VESK_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
