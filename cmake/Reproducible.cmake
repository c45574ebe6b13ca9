# SPDX-License-Identifier: Apache-2.0
# Programs do not contain the paths of the source and build directories, so that the same source gives the same bytes everywhere.
add_compile_options(-ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${CMAKE_BINARY_DIR}=build)
