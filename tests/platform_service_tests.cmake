# The services that the program takes from the system: rules by themselves, and what the X server and the session bus do.

set(KEPT_BY_LIBRARIES "LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_SOURCE_DIR}/support/leaks.supp")
set(ON_THE_DISPLAY "QT_QPA_PLATFORM=xcb;QT_NO_GLIB=1;${KEPT_BY_LIBRARIES}")

add_executable(platform_unit unit/idle_hold_test.cpp unit/key_combination_test.cpp)
target_link_libraries(platform_unit PRIVATE tandrel_platform_dbus tandrel_platform_x11 tandrel_flags GTest::gmock_main)
add_test(NAME platform_unit COMMAND platform_unit)
set_tests_properties(platform_unit PROPERTIES LABELS unit TIMEOUT 120)

add_executable(platform_display platform/desktop_screen_saver_test.cpp platform/display_main.cpp
                                platform/hot_keys_test.cpp platform/monitor_source_test.cpp
                                platform/pointer_test.cpp)
target_link_libraries(platform_display PRIVATE tandrel_platform_dbus tandrel_platform_x11 tandrel_flags Qt6::DBus
                                               Qt6::Gui PkgConfig::xcb GTest::gmock)
add_test(NAME platform_display COMMAND xvfb-run -a -s "-screen 0 640x480x24 -noreset" $<TARGET_FILE:platform_display>)
set_tests_properties(platform_display PROPERTIES LABELS display TIMEOUT 300 ENVIRONMENT "${ON_THE_DISPLAY}")

# The desktop's dialog for files, which the test itself plays on a bus of its own.
add_executable(portal_dialog platform/portal_file_dialog_test.cpp)
target_link_libraries(portal_dialog PRIVATE tandrel_toolkit_qt tandrel_flags Qt6::DBus Qt6::Widgets GTest::gmock)
target_include_directories(portal_dialog PRIVATE support)
add_test(NAME portal_dialog COMMAND portal_dialog)
add_test(NAME portal_dialog_display COMMAND xvfb-run -a -s "-screen 0 800x600x24 -noreset" $<TARGET_FILE:portal_dialog>)
set_tests_properties(portal_dialog_display PROPERTIES LABELS display TIMEOUT 120 ENVIRONMENT "${ON_THE_DISPLAY}")
set_tests_properties(portal_dialog PROPERTIES LABELS ui TIMEOUT 120 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QT_NO_GLIB=1;${KEPT_BY_LIBRARIES}")
