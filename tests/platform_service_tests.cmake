# The services that the program takes from the system: rules by themselves, and what the X server and the session bus do.

add_executable(platform_unit unit/idle_hold_test.cpp unit/key_combination_test.cpp)
target_link_libraries(platform_unit PRIVATE tandrel_platform_dbus tandrel_platform_x11 tandrel_flags GTest::gmock_main)
add_test(NAME platform_unit COMMAND platform_unit)
set_tests_properties(platform_unit PROPERTIES LABELS unit TIMEOUT 120)
