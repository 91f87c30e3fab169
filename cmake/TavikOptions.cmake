# How everything of this project is compiled: C++17, warnings are errors, Qt's strict defines,
# and the sanitizers that a preset asks for.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)

set(TAVIK_SANITIZERS "" CACHE STRING
    "Sanitizers to build everything with: empty, address;undefined;leak, or thread")

set(TAVIK_HEADERS "" CACHE PATH
    "Folder with the gauge library's own headers, under the names of those in library/, which they replace")

option(TAVIK_COVERAGE "Count which lines and branches of the program and the simulated bench are run" OFF)

# A gauge library of another make must be able to take the simulated one's place by standing
# earlier on LD_LIBRARY_PATH. DT_RUNPATH allows that, DT_RPATH would not.
add_link_options(-Wl,--enable-new-dtags)

if(TAVIK_SANITIZERS)
  list(JOIN TAVIK_SANITIZERS "," tavik_sanitizer_list)
  add_compile_options(-fsanitize=${tavik_sanitizer_list} -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${tavik_sanitizer_list})
endif()

if(TAVIK_COVERAGE)
  add_link_options(--coverage)
endif()

# tavik_options: for every target of this project. Warnings about a maker's headers are no errors of ours.
add_library(tavik_options INTERFACE)
if(TAVIK_HEADERS)
  file(GLOB tavik_headers RELATIVE ${PROJECT_SOURCE_DIR}/library ${PROJECT_SOURCE_DIR}/library/*.h)
  foreach(header ${tavik_headers})
    if(NOT EXISTS ${TAVIK_HEADERS}/${header})
      message(FATAL_ERROR "There is no ${header} in ${TAVIK_HEADERS} (TAVIK_HEADERS).")
    endif()
  endforeach()
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/headers)
  file(CREATE_LINK ${TAVIK_HEADERS} ${PROJECT_BINARY_DIR}/headers/library SYMBOLIC)
  target_include_directories(tavik_options INTERFACE ${PROJECT_BINARY_DIR}/headers)
endif()
target_include_directories(tavik_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(tavik_options INTERFACE -Wall -Wextra -Wpedantic $<$<NOT:$<BOOL:${TAVIK_HEADERS}>>:-Werror>)
target_link_libraries(tavik_options INTERFACE Threads::Threads)

# tavik_qt_options: the same, and Qt's strict defines, for every target that uses Qt.
add_library(tavik_qt_options INTERFACE)
target_link_libraries(tavik_qt_options INTERFACE tavik_options)
target_compile_definitions(tavik_qt_options INTERFACE
  QT_NO_CAST_FROM_ASCII
  QT_NO_CAST_TO_ASCII
  QT_NO_CAST_FROM_BYTEARRAY
  QT_NO_URL_CAST_FROM_STRING
  QT_NO_FOREACH
  QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  QT_STRICT_ITERATORS
  QT_DEPRECATED_WARNINGS
  QT_DISABLE_DEPRECATED_BEFORE=0x050F00)

# tavik_covered(<target>...): what is counted. Tests and tools are not. Threads count without losing any.
function(tavik_covered)
  if(TAVIK_COVERAGE)
    foreach(target ${ARGN})
      target_compile_options(${target} PRIVATE --coverage -fprofile-update=atomic)
    endforeach()
  endif()
endfunction()

# tavik_forms(<target> <file.ui>...): forms of Designer, each a header that the build knows to be made from its
# form. AUTOUIC makes the headers behind the build's back: after a change to a form alone, the first build left
# the objects as they were.
function(tavik_forms target)
  qt5_wrap_ui(headers ${ARGN})
  target_sources(${target} PRIVATE ${headers})
  target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
  # What AUTOUIC left in a build folder of that time would be found first.
  file(GLOB stale ${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/include/ui_*.h)
  if(stale)
    file(REMOVE ${stale})
  endif()
endfunction()
