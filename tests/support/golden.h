#pragma once

#include <string>

class LumoBaseElement;

namespace kestrel::test {

/// An element and everything in it as expected files have it: an element on each line, indented by its depth.
std::string goldenText(LumoBaseElement const& element);

/// Holds a text against the expected one in the file `name` of tests/golden/, such as "xgraph/scatter.xml".
/// With KESTREL_GOLDEN_REWRITE=1 in the environment the file is written instead.
void expectGolden(std::string const& actual, std::string const& name);

}  // namespace kestrel::test
