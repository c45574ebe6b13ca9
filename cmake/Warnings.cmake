# SPDX-License-Identifier: Apache-2.0
# Warnings are errors in everything that is ours. Targets link orvane_warnings privately.
add_library(orvane_warnings INTERFACE)
target_compile_options(orvane_warnings INTERFACE
  -Wall -Wextra -Werror -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wformat=2 -Wno-format-nonliteral
  # Entry lines of the log have no text of their own.
  -Wno-format-zero-length)
