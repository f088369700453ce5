#Real mouse and key events on the real window, under a display of its own.
find_package(Qt6 REQUIRED COMPONENTS Test)
find_program(XVFB_RUN xvfb-run)
file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/desktop/*.cpp)
add_executable(test_desktop ${sources})
target_include_directories(test_desktop PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
target_link_libraries(test_desktop PRIVATE morvandel_desktop morvandel_warnings Qt6::Test GTest::gtest)
morvandel_precompile(test_desktop <QtWidgets>)
target_compile_definitions(test_desktop PRIVATE
  TEST_DATA="${CMAKE_CURRENT_SOURCE_DIR}/data" TEST_BIN="${CMAKE_BINARY_DIR}/bin")
add_dependencies(test_desktop morvandel morvandel_lessons morvandel_templates)
if(XVFB_RUN)
  add_test(NAME desktop COMMAND ${XVFB_RUN} -a -s "-screen 0 1440x900x24 +extension GLX" $<TARGET_FILE:test_desktop>)
  add_test(NAME desktop_scale_2 COMMAND ${XVFB_RUN} -a -s "-screen 0 1920x1080x24" $<TARGET_FILE:test_desktop>
    --gtest_filter=Layout.*)
  add_test(NAME desktop_without_gl COMMAND ${XVFB_RUN} -a -s "-screen 0 1440x900x24" $<TARGET_FILE:test_desktop>
    --gtest_filter=NoGl.*)
  set_tests_properties(desktop_without_gl PROPERTIES ENVIRONMENT QT_XCB_GL_INTEGRATION=none)
  set_tests_properties(desktop desktop_scale_2 desktop_without_gl PROPERTIES TIMEOUT 300 RUN_SERIAL ON)
  set_tests_properties(desktop_scale_2 PROPERTIES ENVIRONMENT QT_SCALE_FACTOR=2)
else()
  message(STATUS "xvfb-run not found: the desktop tests need the display of this session")
  add_test(NAME desktop COMMAND test_desktop)
endif()
