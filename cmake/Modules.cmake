# SPDX-License-Identifier: Apache-2.0
# A wrapper of a C library: orvane_wrapper(NAME [SOURCES FILE...] [LIBRARIES TARGET...]) makes lib_NAME, whose headers are
# included as "NAME/Header.h".
function(orvane_wrapper name)
  cmake_parse_arguments(PARSE_ARGV 1 WRAPPER "" "" "SOURCES;LIBRARIES")
  if(WRAPPER_SOURCES)
    add_library(lib_${name} STATIC ${WRAPPER_SOURCES})
    target_include_directories(lib_${name} PUBLIC ${PROJECT_SOURCE_DIR}/lib)
    target_link_libraries(lib_${name} PUBLIC Threads::Threads ${WRAPPER_LIBRARIES} PRIVATE orvane_warnings)
  else()
    add_library(lib_${name} INTERFACE)
    target_include_directories(lib_${name} INTERFACE ${PROJECT_SOURCE_DIR}/lib)
    target_link_libraries(lib_${name} INTERFACE ${WRAPPER_LIBRARIES})
  endif()
endfunction()

# A module of the platform on Linux: orvane_linux_module(NAME SOURCES FILE... [DEPENDS TARGET...]) makes linux_NAME.
#
# Private headers are beside the sources and are included by their bare names. Headers for other modules are in include/,
# and only a module that lists this one after DEPENDS includes them (script/includes). DEPENDS takes modules (linux_NAME), wrappers
# (lib_NAME), the D-Bus interfaces (dbus_interfaces), and imported libraries.
#
# A module is an object library, so that platform_linux is a single archive from which the linker takes only the needed
# objects.
function(orvane_linux_module name)
  cmake_parse_arguments(PARSE_ARGV 1 MODULE "" "" "SOURCES;DEPENDS")
  add_library(linux_${name} OBJECT ${MODULE_SOURCES})
  if(IS_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}/include)
    target_include_directories(linux_${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/include)
    target_include_directories(platform_linux_internals INTERFACE ${CMAKE_CURRENT_SOURCE_DIR}/include)
  endif()
  target_link_libraries(linux_${name} PUBLIC platform_seam Threads::Threads ${MODULE_DEPENDS} PRIVATE orvane_warnings)
  target_link_libraries(platform_linux PRIVATE linux_${name})
  list(FILTER MODULE_DEPENDS INCLUDE REGEX "^(lib|dbus)_")
  target_link_libraries(platform_linux_internals INTERFACE ${MODULE_DEPENDS})
endfunction()
