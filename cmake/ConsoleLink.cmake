# How the console's executable links. The kernel maps a program's pages in runs of a hundred KiB or more
# around each page it touches, so code the start runs, scattered over the whole text, made nearly all of it
# resident. An order list (cmake/StartOrder.txt, written by scripts/order) has lld pack that code into one
# block. The development build also carries the C++ runtime inside: the shared one costs about a MiB of
# resident pages at start; the packaged console links it dynamically, as Debian expects.
include(CheckLinkerFlag)
check_linker_flag(CXX "-fuse-ld=lld" TARN_HAVE_LLD)
option(TARN_STATIC_RUNTIME "Link the development build's console with the C++ runtime inside" ON)
set(TARN_START_ORDER ${PROJECT_SOURCE_DIR}/cmake/StartOrder.txt)

# RUNTIME is STATIC or SHARED. Sanitizer and fuzz builds keep the default link: their runtimes expect it.
function(tarn_console_link target runtime)
  target_link_options(${target} PRIVATE -Wl,--gc-sections)
  if(TARN_SANITIZE OR TARN_FUZZ)
    return()
  endif()
  # Libraries nothing calls into are not loaded (libm once the runtime is inside).
  target_link_options(${target} PRIVATE -Wl,--as-needed)
  if(TARN_HAVE_LLD)
    # A stale list only orders less: names no longer present are skipped quietly.
    target_link_options(${target} PRIVATE -fuse-ld=lld -Wl,--symbol-ordering-file=${TARN_START_ORDER}
                        -Wl,--no-warn-symbol-ordering)
    set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS ${TARN_START_ORDER})
  endif()
  if(runtime STREQUAL "STATIC")
    target_link_options(${target} PRIVATE -static-libstdc++ -static-libgcc)
  endif()
endfunction()
