# Discs: looking at them, and playing them on a screen.

set(TANDREL_TEST_DISC ${CMAKE_BINARY_DIR}/test_disc)
add_custom_command(
  OUTPUT ${TANDREL_TEST_DISC}/made
  COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/support/make_test_disc.py ${TANDREL_TEST_DISC}
  COMMAND ${CMAKE_COMMAND} -E touch ${TANDREL_TEST_DISC}/made
  DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/support/make_test_disc.py ${CMAKE_CURRENT_SOURCE_DIR}/support/make_test_media.py
  COMMENT "Making a test disc"
  VERBATIM)
add_custom_target(test_disc DEPENDS ${TANDREL_TEST_DISC}/made)

# tandrel_disc_test(NAME DISPLAY|NODISPLAY source...)
function(tandrel_disc_test name display)
  tandrel_media_test(${name} ${display} ${ARGN})
  add_dependencies(${name} test_disc)
  target_compile_definitions(${name} PRIVATE TANDREL_TEST_DISC="${TANDREL_TEST_DISC}")
  target_link_libraries(${name} PRIVATE tandrel_platform_vlc tandrel_platform_disc)
endfunction()

tandrel_disc_test(disc_look NODISPLAY contract/disc_look_test.cpp)
tandrel_disc_test(disc_player DISPLAY
  contract/disc_menu_test.cpp
  contract/disc_playing_test.cpp
  contract/disc_trouble_test.cpp)
