# Warnings for our own targets. They never reach a client: strictness is a matter of this checkout.

function(orvel_set_warnings target)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wconversion -Wshadow)
    if(ORVELMATH_STRICT_WARNINGS)
        target_compile_options(${target} PRIVATE -Werror)
    endif()
    # qMalloc, qFree, qSort and QLinkedList are part of the interface and marked deprecated by Qt 5.15.
    target_compile_definitions(${target} PRIVATE QT_NO_DEPRECATED_WARNINGS)
endfunction()
