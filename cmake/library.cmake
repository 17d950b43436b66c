# One static library a folder. A library sees the headers of its own folder and of the libraries named behind
# USES, and no others: each folder is reached through an include root of its own, so that an include which the
# architecture forbids does not compile.

set(TANDREL_INCLUDE_ROOTS ${CMAKE_BINARY_DIR}/include-roots)

add_library(tandrel_flags INTERFACE)
target_compile_options(tandrel_flags INTERFACE -Wall -Wextra -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # This compiler sees overlaps in the standard library's own string sums where there are none.
  target_compile_options(tandrel_flags INTERFACE -Wno-restrict)
endif()
# Of the tests themselves. What is looked for there is what the program does, and undefined behaviour of the matchers'
# templates would cost as much time to compile as all the rest.
define_property(TARGET PROPERTY TANDREL_IS_TEST INITIALIZE_FROM_VARIABLE TANDREL_IS_TEST)
if(TANDREL_SANITIZE)
  target_compile_options(tandrel_flags INTERFACE -fsanitize=${TANDREL_SANITIZE} -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer
                                                 $<$<BOOL:$<TARGET_PROPERTY:TANDREL_IS_TEST>>:-fno-sanitize=undefined>)
  target_link_options(tandrel_flags INTERFACE -fsanitize=${TANDREL_SANITIZE})
endif()

# tandrel_library(FOLDER [APART] [USES folder...] [LINKS target...] SOURCES file...)
# APART: its sources are never compiled together.
# FOLDER is the path below src/, and gives the target its name: platform/mpv becomes tandrel_platform_mpv.
function(tandrel_library folder)
  cmake_parse_arguments(arg "APART" "" "USES;LINKS;SOURCES" ${ARGN})
  string(REPLACE "/" "_" name tandrel_${folder})

  set(root ${TANDREL_INCLUDE_ROOTS}/${name})
  file(MAKE_DIRECTORY ${root}/${folder})
  file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/src/${folder}/*.h)
  file(GLOB known ${root}/${folder}/*.h)
  if(known)
    file(REMOVE ${known})
  endif()
  foreach(header ${headers})
    cmake_path(GET header FILENAME base)
    file(CREATE_LINK ${header} ${root}/${folder}/${base} SYMBOLIC)
  endforeach()

  list(TRANSFORM arg_SOURCES PREPEND ${CMAKE_SOURCE_DIR}/src/${folder}/)
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC ${root})
  # What is built from the beginning for the most part: what the sources include takes longer than they do themselves.
  if((TANDREL_SANITIZE OR TANDREL_TOGETHER) AND NOT arg_APART)
    set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
  endif()
  list(TRANSFORM arg_USES REPLACE "/" "_")
  list(TRANSFORM arg_USES PREPEND tandrel_)
  target_link_libraries(${name} PUBLIC ${arg_USES} PRIVATE tandrel_flags ${arg_LINKS})
endfunction()

# The folders of forms see each other's headers and link in a circle, which static libraries may.
function(tandrel_forms)
  foreach(one ${ARGN})
    foreach(other ${ARGN})
      if(NOT one STREQUAL other)
        target_link_libraries(tandrel_${one} PUBLIC tandrel_${other})
      endif()
    endforeach()
  endforeach()
endfunction()
