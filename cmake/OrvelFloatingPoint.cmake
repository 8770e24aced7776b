# The same input gives the same bits on every compiler and level: no contraction into fused
# multiply-adds, no fast-math, no x87. Clients get the flags through the target, because inlined
# code of the headers is compiled by them.

set(orvel_floating_point_flags -ffp-contract=off -fno-fast-math)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "i[3-6]86")
    list(APPEND orvel_floating_point_flags -msse2 -mfpmath=sse)
endif()

function(orvel_set_floating_point target)
    target_compile_options(${target} PUBLIC
        "$<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:${orvel_floating_point_flags}>")
    # errno is never read after a mathematics function, so a root is one instruction.
    target_compile_options(${target} PRIVATE
        $<$<CXX_COMPILER_ID:GNU,Clang,AppleClang>:-fno-math-errno>)
endfunction()
