// What is no chart, over a socket.

#include "listen_fixture.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using namespace kestrel::test;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class SideContentOnASocket : public Listen {
 protected:
  SideContentOnASocket() {
    write("plot.gif", "GIF89a and more");
    write("page.json", "{\"page\": 1}");
    write("table.csv", "age\n41.5\n");
  }

  /// Sends to a listener, which must find nothing wrong. What it has said.
  std::string receive(std::vector<std::string> arguments) const {
    ListenerProcess listener(folder, {"--once"});
    arguments.insert(arguments.end(), {"--send", "unix:s"});
    Outcome const outcome = kestrel(arguments);
    EXPECT_EQ(outcome.exit, 0) << outcome.err;
    EXPECT_THAT(outcome.out, testing::HasSubstr("unix:s: "));
    EXPECT_EQ(listener.wait(), 0);
    return listener.out();
  }
};

TEST_F(SideContentOnASocket, IsReceivedAsAnImage) {
  EXPECT_THAT(receive({"image", "plot.gif", "--subtype", "1"}),
              HasSubstr("got/001.kcap: image, 4 messages, "));
  EXPECT_THAT(filesIn("got/001"),
              ElementsAre("description.eng.txt", "description.txt", "done.json", "image-1.gif"));
  EXPECT_EQ(read("got/001/image-1.gif"), "GIF89a and more");
}

TEST_F(SideContentOnASocket, IsReceivedAsAPage) {
  EXPECT_THAT(receive({"interactive", "page.json"}),
              HasSubstr("got/001.kcap: interactive content, 4 messages, "));
  EXPECT_EQ(read("got/001/interactive.json"), "{\"page\": 1}");
}

TEST_F(SideContentOnASocket, IsReceivedAsAChartOfTheEngine) {
  EXPECT_THAT(receive({"engine", "page.json"}), HasSubstr("got/001.kcap: engine chart, 4 messages, "));
  EXPECT_EQ(read("got/001/engine.json"), "{\"page\": 1}");
}

TEST_F(SideContentOnASocket, IsReceivedAsAService) {
  EXPECT_THAT(receive({"service", "--data", "table.csv"}), HasSubstr("got/001.kcap: service, 6 messages, "));
  EXPECT_THAT(read("got/001/service-template.xml"), HasSubstr("<sourceVariable index=\"0\" name=\"age\"/>"));
}

TEST_F(SideContentOnASocket, IsInTheFileTooWhereBothAreAskedFor) {
  receive({"image", "plot.gif", "-o", "out"});
  EXPECT_EQ(read("out/capture.kcap"), read("got/001.kcap"));
}

}  // namespace
