# Flags shared by the library, its tools and its tests.
#
# Results must be identical to the byte on every compiler and CPU the library
# ships for (x86-64 and 32-bit ARM hard-float). Two things would break that:
# fused multiply-add contraction, and value-changing floating-point
# optimisations. Both are switched off here for every target; nothing may
# re-enable them.
add_library(qtzq_build_flags INTERFACE)
target_compile_options(qtzq_build_flags INTERFACE
  -ffp-contract=off
  -fno-fast-math
  -Wall -Wextra)

# (Emscripten's toolchain calls WebAssembly "x86" too; it has no x87.)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^(i.86|x86)$" AND NOT EMSCRIPTEN)
  # 32-bit x86 would otherwise compute in x87 extended precision.
  target_compile_options(qtzq_build_flags INTERFACE -msse2 -mfpmath=sse)
endif()

if(QTZQ_SANITIZE)
  target_compile_options(qtzq_build_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(qtzq_build_flags INTERFACE -fsanitize=address,undefined)
endif()

option(QTZQ_SANITIZE_THREAD "Build everything with ThreadSanitizer" OFF)
if(QTZQ_SANITIZE_THREAD)
  if(QTZQ_SANITIZE)
    message(FATAL_ERROR "QTZQ_SANITIZE_THREAD cannot be combined with QTZQ_SANITIZE")
  endif()
  target_compile_options(qtzq_build_flags INTERFACE -fsanitize=thread -fno-omit-frame-pointer)
  target_link_options(qtzq_build_flags INTERFACE -fsanitize=thread)
endif()
