# tavik_add_test(<name> SOURCES <file>... [LABELS <label>...] [LIBS <target>...] [SERIAL])
#
# One QtTest executable, whose class is in <name>.cpp, registered with CTest to run without a display. It links
# the program's rooms, the simulated bench and the test support; LIBS adds more. SERIAL keeps it from running
# beside other tests (for subjects that measure time).

# What the sanitizers are told, wherever a program of this build runs. The leak sanitizer takes thread-local
# storage that begins 16 bytes into a page for one of an old C library, believes the two words before it to be
# its size and address, and dies of reading there. libjpeg-turbo, which decodes the logo, brings such storage
# along, and one place in 128 begins so. With intercept_tls_get_addr=0 the sanitizer does not look for it.
set(TAVIK_SANITIZER_OPTIONS
  "ASAN_OPTIONS=intercept_tls_get_addr=0"
  "LSAN_OPTIONS=suppressions='${PROJECT_SOURCE_DIR}/cmake/lsan.supp':print_suppressions=0"
  "UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1"
  "TSAN_OPTIONS=ignore_noninstrumented_modules=1:halt_on_error=1:suppressions='${PROJECT_SOURCE_DIR}/cmake/tsan.supp'")

# The same for the tools that start programs of this build themselves.
set(exports "")
foreach(option ${TAVIK_SANITIZER_OPTIONS})
  string(REGEX REPLACE "^([A-Z_]+)=(.*)$" "export \\1=\"\\2\"\n" export ${option})
  string(APPEND exports ${export})
endforeach()
file(WRITE ${PROJECT_BINARY_DIR}/sanitizers.sh ${exports})

# How long a test may take is said by CTest's TIMEOUT; QtTest's own limit of 5 minutes for a function would end
# a sweep under the sanitizers on a busy computer.
set(TAVIK_TEST_ENVIRONMENT
  "QT_QPA_PLATFORM=offscreen"
  "QTEST_FUNCTION_TIMEOUT=1800000"
  ${TAVIK_SANITIZER_OPTIONS})

# Qt reports these mistakes in passing and goes on; a test that sees one has failed.
set(TAVIK_QT_WARNINGS
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

  # AUTOMOC would look through each test on its own and compile a file of nothing for it: a tenth of the build.
  set(moc ${CMAKE_CURRENT_BINARY_DIR}/${name}.moc)
  add_custom_command(OUTPUT ${moc}
    COMMAND Qt5::moc -o ${moc} ${CMAKE_CURRENT_SOURCE_DIR}/${name}.cpp
    DEPENDS ${name}.cpp
    VERBATIM)
  add_executable(${name} ${arg_SOURCES} ${moc})
  target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
  target_precompile_headers(${name} REUSE_FROM tavik_test_support)
  target_link_libraries(${name} PRIVATE
    ${arg_LIBS} tavik_test_support tavik_shell tavik_panels TavikLibrary
    Qt5::Widgets Qt5::Test tavik_qt_options)

  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    ENVIRONMENT "${TAVIK_TEST_ENVIRONMENT}"
    LABELS "${arg_LABELS}"
    FAIL_REGULAR_EXPRESSION "${TAVIK_QT_WARNINGS}"
    TIMEOUT 300
    RUN_SERIAL ${arg_SERIAL})
endfunction()

# tavik_add_test_base(<name> <file>...): what several tests are built upon, compiled once.
function(tavik_add_test_base name)
  add_library(${name} STATIC ${ARGN})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_precompile_headers(${name} REUSE_FROM tavik_test_support)
  target_link_libraries(${name} PUBLIC tavik_test_support tavik_signals)
endfunction()
