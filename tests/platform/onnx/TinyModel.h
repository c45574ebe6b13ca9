// SPDX-License-Identifier: Apache-2.0
// A model of a few bytes, written in the tree, so that tests need no file from the network.
#pragma once

#include <string>

namespace onnx {

// Inputs: "x", floats of the shape {rows, 2}; "row", integers of the shape {picked}; "keep", a truth value of the shape
// {1}. Outputs: "y", the rows that "row" picks from x, with 10 added to the first number and 20 to the second, and
// negated unless "keep" is true; "sum", which is x with the same numbers added.
std::string tinyModel();

}  // namespace onnx
