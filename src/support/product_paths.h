#pragma once

#include <string>

class PathInstance;

namespace kestrel {

/// The host's own paths.
PathInstance const& productPaths();

/// The path of a file in the product's template folder.
std::string productTemplate(std::string name);

/// The code page of the language that a dictionary path stands for: the folder right behind the base path.
std::string codePageOfDictionary(std::string const& dictionaryPath);

}  // namespace kestrel
