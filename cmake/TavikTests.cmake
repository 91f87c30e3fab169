# tavik_add_test(<name> SOURCES <file>... [LABELS <label>...] [LIBS <target>...] [SERIAL])
#
# One QtTest executable, registered with CTest to run without a display. It links the program's
# rooms, the simulated bench and the test support; LIBS adds more. SERIAL keeps it from running
# beside other tests (for subjects that measure time).

set(TAVIK_LSAN_SUPPRESSIONS ${PROJECT_SOURCE_DIR}/cmake/lsan.supp)
set(TAVIK_TSAN_SUPPRESSIONS ${PROJECT_SOURCE_DIR}/cmake/tsan.supp)

# How long a test may take is said by CTest's TIMEOUT; QtTest's own limit of 5 minutes for a function would end
# a sweep under the sanitizers on a busy computer.
set(TAVIK_TEST_ENVIRONMENT
  "QT_QPA_PLATFORM=offscreen"
  "QTEST_FUNCTION_TIMEOUT=1800000"
  "LSAN_OPTIONS=suppressions='${TAVIK_LSAN_SUPPRESSIONS}':print_suppressions=0"
  "UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1"
  "TSAN_OPTIONS=ignore_noninstrumented_modules=1:halt_on_error=1:suppressions='${TAVIK_TSAN_SUPPRESSIONS}'")

# Qt reports these mistakes in passing and goes on; a test that sees one has failed.
set(TAVIK_QT_COMPLAINTS
  "QMetaObject::connectSlotsByName: "
  "QMetaObject::invokeMethod: "
  "QObject::connect: "
  "QObject: Cannot create children for a parent that is in a different thread"
  "Timers cannot be "
  "QPainter::begin: "
  "QWidget::setLayout: "
  "QLayout: ")

function(tavik_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "SERIAL" "" "SOURCES;LABELS;LIBS")
  if(NOT arg_SOURCES)
    message(FATAL_ERROR "tavik_add_test(${name}): no SOURCES")
  endif()
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "tavik_add_test(${name}): unknown arguments ${arg_UNPARSED_ARGUMENTS}")
  endif()

  add_executable(${name} ${arg_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_precompile_headers(${name} REUSE_FROM tavik_test_support)
  target_link_libraries(${name} PRIVATE
    ${arg_LIBS} tavik_test_support tavik_shell tavik_panels TavikLibrary
    Qt5::Widgets Qt5::Test tavik_qt_options)

  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "${TAVIK_TEST_ENVIRONMENT}"
    LABELS "${arg_LABELS}"
    FAIL_REGULAR_EXPRESSION "${TAVIK_QT_COMPLAINTS}"
    TIMEOUT 300
    RUN_SERIAL ${arg_SERIAL})
endfunction()
