# SPDX-License-Identifier: Apache-2.0
# No program holds the path of the source or of the build, so that the same source makes the same bytes everywhere.
add_compile_options(-ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${CMAKE_BINARY_DIR}=build)
