#include "conversion_fixture.h"

#include <iterator>

namespace kestrel::test {

std::vector<std::string> afterStart(std::vector<std::string> const& rest) {
  std::vector<std::string> story = {
      started,
      "VexaJVM::GetInstance",
      "VexaJVM::IsStarted",
      "VexaJVM::StartJVM",
      "VexaJVM::IsStarted",
      "VexaJVM::AttachCurrentThread",
      "LumoConverter::GetInstance",
      "LumoConverter::IsStarted",
      "VexaJVM::GetEnv",
      "LumoConverter::StartConverter",
  };
  story.insert(story.end(), rest.begin(), rest.end());
  return story;
}

std::vector<std::string> convertedBy(std::string const& converter) {
  return afterStart({"trace: Before Calling Converter", converter, "trace: After Calling Converter",
                     "trace: Parsed XML", "PathInstance::getDictionaryPath",
                     "FacSTDictionary::FacSTDictionary", "PathInstance::getBasePath",
                     "FacSTDictionary::SetProcedure"});
}

ConversionTest::ConversionTest() { takes(current); }

void ConversionTest::takes(std::string const& result) {
  auto const give = [result](std::string const&, std::string& out) {
    out = result;
    return true;
  };
  java.pdl = give;
  java.upgrading = give;
}

void ConversionTest::refuses(std::string const& message) {
  java.pdl = nullptr;
  java.upgrading = nullptr;
  java.message = message;
}

std::vector<std::string> ConversionTest::reports() const {
  std::vector<std::string> told;
  for (std::string const& event : storyOf(recorder)) {
    if (event.rfind("user: ", 0) == 0 || event.rfind("log: ", 0) == 0) told.push_back(event);
  }
  return told;
}

}  // namespace kestrel::test
