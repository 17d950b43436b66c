# tandrel_made_media(TARGET FOLDER SCRIPT WHAT source...)
# Media for tests that SCRIPT makes in FOLDER of the build, anew when one of the sources changes. Where TANDREL_READY_MEDIA
# names the folder of another build that has made them, they are taken from there.
set(TANDREL_READY_MEDIA "" CACHE PATH "Another build's folder, whose test media are taken over")

function(tandrel_made_media target folder script what)
  set(make ${Python3_EXECUTABLE} ${script} ${CMAKE_BINARY_DIR}/${folder})
  if(TANDREL_READY_MEDIA AND EXISTS ${TANDREL_READY_MEDIA}/${folder}/made)
    set(make cp -rlf ${TANDREL_READY_MEDIA}/${folder} ${CMAKE_BINARY_DIR})
  endif()
  add_custom_command(
    OUTPUT ${CMAKE_BINARY_DIR}/${folder}/made
    COMMAND ${make}
    COMMAND ${CMAKE_COMMAND} -E touch ${CMAKE_BINARY_DIR}/${folder}/made
    DEPENDS ${script} ${ARGN}
    COMMENT "Making ${what}"
    VERBATIM)
  add_custom_target(${target} DEPENDS ${CMAKE_BINARY_DIR}/${folder}/made)
endfunction()
