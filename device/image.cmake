# Building a dynamic library for the device from C++ sources: one slice for each processor, joined into one file.
# Functions only; the tests use them to build faulty images.

set(device_folder ${CMAKE_CURRENT_LIST_DIR})
set(device_system 9.2)
set(device_sdk 12.4)
set(device_install_name /Library/MobileSubstrate/DynamicLibraries/Tilo.dylib)

# By absolute path: the packages of several LLVM versions put tools of the same names on the PATH.
foreach(tool clang clang++ llvm-lipo llvm-objdump llvm-strip)
  set(variable device_${tool})
  find_program(${variable} ${tool} PATHS /usr/lib/llvm-19/bin NO_DEFAULT_PATH REQUIRED)
endforeach()
find_program(device_linker_arm64 ld64.lld PATHS /usr/lib/llvm-19/bin NO_DEFAULT_PATH REQUIRED)
find_program(device_linker_armv7 ld64.lld.darwinold PATHS /usr/lib/llvm-13/bin NO_DEFAULT_PATH REQUIRED)
find_path(device_cxx_headers version PATHS /usr/lib/llvm-19/include/c++/v1 NO_DEFAULT_PATH REQUIRED)
find_path(device_c_headers _newlib_version.h PATHS /usr/include/newlib NO_DEFAULT_PATH REQUIRED)

set(device_compile_flags
    -std=c++23 -Os -fno-exceptions -fno-rtti -fvisibility=hidden -fvisibility-inlines-hidden -fno-threadsafe-statics
    -ffp-contract=off
    # The same wherever the tree lies.
    -ffile-prefix-map=${CMAKE_SOURCE_DIR}/=
    -Wall -Wextra -Wshadow -Werror
    -nostdinc++ -nostdlibinc -isystem ${device_folder}/include -isystem ${device_cxx_headers}
    -isystem ${device_c_headers}
    # newlib's wchar.h does not declare FILE, which the C++ headers expect of it.
    -include stdio.h
    # iOS 9's C++ library has no function for failed assertions.
    "-D_LIBCPP_VERBOSE_ABORT(...)=__builtin_trap()")

# With unwind tables, so that an exception that the system raises below our frames reaches a handler above them; the
# armv7 runtime needs none.
set(device_target_arm64 -target arm64-apple-ios${device_system} -funwind-tables)
# As Thumb the armv7 linker would break tail calls, virtual tables and exports.
set(device_target_armv7 -target armv7-apple-ios${device_system} -marm -mcpu=cortex-a8 -mfpu=neon)

# Bytes that the load commands leave free, for that of the signature. The armv7 linker is not asked: it leaves about 1,000.
set(device_header_space 0x40)

set(device_link_arm64 ${device_linker_arm64} -arch arm64 -platform_version ios ${device_system} ${device_sdk}
    -no_encryption -fatal_warnings -headerpad ${device_header_space})
# This linker leaves in gaps between data what its memory held; with this setting of the C library that is zeros.
set(device_link_armv7 ${CMAKE_COMMAND} -E env MALLOC_PERTURB_=255 ${device_linker_armv7} -arch armv7 -ios_version_min ${device_system} -sdk_version ${device_sdk})

# Makes in `folder` the stubs of the libraries whose imports the lists in `lists` allow, and gives their paths to the
# variables <out>_arm64 and <out>_armv7.
function(device_stubs out folder lists)
  file(GLOB files CONFIGURE_DEPENDS ${lists}/*.txt)
  file(MAKE_DIRECTORY ${folder})
  set(system ${folder}/libSystem.dylib)
  set(stubs_arm64)
  set(stubs_armv7)
  foreach(file IN LISTS files)
    cmake_path(GET file STEM name)
    file(STRINGS ${file} heading REGEX "^install-name ")
    string(REGEX REPLACE "^install-name +" "" install_name "${heading}")
    file(STRINGS ${file} heading REGEX "^compatibility-version ")
    string(REGEX REPLACE "^compatibility-version +" "" version "${heading}")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    add_custom_command(
      OUTPUT ${folder}/${name}.tbd
      COMMAND make_stub ${file} arm64 ${folder}/${name}.tbd
      DEPENDS make_stub ${file}
      VERBATIM)
    set(others)
    if(NOT name STREQUAL libSystem)
      set(others ${system})
    endif()
    add_custom_command(
      OUTPUT ${folder}/${name}.dylib
      COMMAND make_stub ${file} armv7 ${folder}/${name}.s
      COMMAND ${device_clang} ${device_target_armv7} -c ${folder}/${name}.s -o ${folder}/${name}.o
      COMMAND ${device_link_armv7} -dylib -install_name ${install_name} -current_version ${version}
              -compatibility_version ${version} ${folder}/${name}.o ${others} -o ${folder}/${name}.dylib
      DEPENDS make_stub ${file} ${others}
      VERBATIM)
    list(APPEND stubs_arm64 ${folder}/${name}.tbd)
    list(APPEND stubs_armv7 ${folder}/${name}.dylib)
  endforeach()
  set(${out}_arm64 ${stubs_arm64} PARENT_SCOPE)
  set(${out}_armv7 ${stubs_armv7} PARENT_SCOPE)
endfunction()

# Compiles `source` for `slice` into `object`. Options after these are for the compiler, except RAW_POINTERS: leave
# out the rewriting of armv7 pointers.
function(device_object object slice source)
  cmake_parse_arguments(PARSE_ARGV 3 arg "RAW_POINTERS" "" "")
  set(compile ${device_clang++} ${device_target_${slice}} ${device_compile_flags} -I${CMAKE_SOURCE_DIR}
      ${arg_UNPARSED_ARGUMENTS} -MD -MF ${object}.d -MT ${object})
  cmake_path(GET object PARENT_PATH folder)
  file(MAKE_DIRECTORY ${folder})
  if(slice STREQUAL arm64 OR arg_RAW_POINTERS)
    add_custom_command(
      OUTPUT ${object}
      COMMAND ${compile} -c ${source} -o ${object}
      DEPENDS ${source}
      DEPFILE ${object}.d
      VERBATIM)
  else()
    add_custom_command(
      OUTPUT ${object}
      COMMAND ${compile} -S ${source} -o ${object}.compiled.s
      COMMAND rewrite_pointers ${object}.compiled.s ${object}.s
      COMMAND ${device_clang} ${device_target_armv7} -c ${object}.s -o ${object}
      DEPENDS ${source} rewrite_pointers
      DEPFILE ${object}.d
      VERBATIM)
  endif()
endfunction()

# Links objects and stubs into the dynamic library `output` for `slice`, which exports what the file `exports` names.
function(device_slice output slice exports)
  cmake_parse_arguments(PARSE_ARGV 3 arg "" "" "OBJECTS;STUBS")
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${device_link_${slice}} -dylib -install_name ${device_install_name} -dead_strip
            -exported_symbols_list ${exports} ${arg_OBJECTS} ${arg_STUBS} -o ${output}
    DEPENDS ${arg_OBJECTS} ${arg_STUBS} ${exports}
    VERBATIM)
endfunction()

# Copies a slice without its local symbols.
function(device_stripped output slice)
  add_custom_command(
    OUTPUT ${output}
    COMMAND strip_locals ${slice} ${output}
    DEPENDS ${slice} strip_locals
    VERBATIM)
endfunction()

# Copies a slice with a signature under that name behind it; nothing may be done to it afterwards but joining.
function(device_signed output slice identifier)
  add_custom_command(
    OUTPUT ${output}
    COMMAND sign ${identifier} ${slice} ${output}
    DEPENDS ${slice} sign
    VERBATIM)
endfunction()

# Joins slices into one universal file.
function(device_join output)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${device_llvm-lipo} -create ${ARGN} -output ${output}
    DEPENDS ${ARGN}
    VERBATIM)
endfunction()
