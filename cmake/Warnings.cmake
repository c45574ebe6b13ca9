# SPDX-License-Identifier: Apache-2.0
# Warnings are errors in all our code. Targets link orvane_warnings privately.
add_library(orvane_warnings INTERFACE)
target_compile_options(orvane_warnings INTERFACE
  -Wall -Wextra -Werror -Wshadow $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor> $<$<COMPILE_LANGUAGE:CXX>:-Woverloaded-virtual>
  -Wformat=2 -Wno-format-nonliteral
  # The log line on entry to a function has an empty text.
  -Wno-format-zero-length)
