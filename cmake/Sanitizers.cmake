# SPDX-License-Identifier: Apache-2.0
if(ORVANE_SANITIZE)
  add_compile_options(-fsanitize=${ORVANE_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${ORVANE_SANITIZE})
  # Every program contains its sanitizers' default options, so that it needs no environment variables.
  add_library(sanitizer_defaults OBJECT ${CMAKE_CURRENT_LIST_DIR}/SanitizerDefaults.cpp)
  link_libraries($<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,EXECUTABLE>:sanitizer_defaults>)
endif()
