# SPDX-FileCopyrightText: The Obelmark developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Every compiler flag of the project stands here, in one interface target.
add_library(obelmark_flags INTERFACE)
target_compile_features(obelmark_flags INTERFACE cxx_std_20)
target_compile_options(obelmark_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
  -Wimplicit-fallthrough -fno-strict-overflow)
if(OBELMARK_WERROR)
  target_compile_options(obelmark_flags INTERFACE -Werror)
endif()
target_compile_definitions(obelmark_flags INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_CAST_FROM_BYTEARRAY
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_STRICT_ITERATORS QT_NO_FOREACH
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)
# What is delivered reads files that others have made, or damaged: it checks its stack.
target_compile_options(obelmark_flags INTERFACE
  $<$<CONFIG:RelWithDebInfo>:-fstack-protector-strong -fstack-clash-protection -fcf-protection>)
if(OBELMARK_SANITIZE)
  target_compile_options(obelmark_flags INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                         -fno-omit-frame-pointer)
  # The checks that the sanitizers put in lead this warning of the compiler's astray.
  target_compile_options(obelmark_flags INTERFACE -Wno-maybe-uninitialized)
  target_link_options(obelmark_flags INTERFACE -fsanitize=address,undefined)
endif()

# obelmark_folder(<folder> SOURCES ... LINKS ... [PCH <header>...] [REUSE_PCH <target>])
# One library per folder of src/. What a folder may include is what it links: the linker guards the floors.
function(obelmark_folder name)
  cmake_parse_arguments(ARG "" "REUSE_PCH" "SOURCES;LINKS;PCH" ${ARGN})
  add_library(obelmark_${name} STATIC ${ARG_SOURCES})
  target_include_directories(obelmark_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(obelmark_${name} PUBLIC ${ARG_LINKS} PRIVATE obelmark_flags)
  if(ARG_PCH)
    target_precompile_headers(obelmark_${name} PRIVATE ${ARG_PCH})
  elseif(ARG_REUSE_PCH)
    target_precompile_headers(obelmark_${name} REUSE_FROM obelmark_${ARG_REUSE_PCH})
  endif()
endfunction()
