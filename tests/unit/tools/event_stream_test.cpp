// What kestrel serve tells the pages that are open.

#include "serve/event_stream.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace kestrel::tool {

namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::Optional;

}  // namespace

TEST(EventStream, BeginsWithTheServerAndTheFirstChartThatIsKept) {
  ChartShelf shelf(1, 1000);
  shelf.put("one", "1");
  shelf.put("two", "2");
  EventStream stream(shelf, "abc", 1h);
  EXPECT_THAT(
      stream.next(0ms),
      Optional(AllOf(HasSubstr("event: server\ndata: {\"first\":2,\"id\":\"abc\"}\n\n"),
                     HasSubstr("event: chart\ndata: {\"from\":\"two\",\"id\":2,"), Not(HasSubstr("one")))));
}

TEST(EventStream, SaysThatItIsThereWhenThereIsNoNews) {
  ChartShelf const shelf(10, 1000);
  EventStream stream(shelf, "abc", 1h);
  stream.next(0ms);
  EXPECT_THAT(stream.next(0ms), Optional(std::string(":\n\n")));
}

TEST(EventStream, TellsWhatIsKeptNoLonger) {
  ChartShelf shelf(1, 1000);
  shelf.put("one", "1");
  EventStream stream(shelf, "abc", 1h);
  stream.next(0ms);
  shelf.put("two", "2");
  EXPECT_THAT(stream.next(0ms), Optional(AllOf(HasSubstr("event: gone\ndata: 1\n\n"), HasSubstr("two"))));
}

TEST(EventStream, EndsWhenItHasBeenThereForLongEnough) {
  ChartShelf const shelf(10, 1000);
  EventStream stream(shelf, "abc", 0s);
  EXPECT_NE(stream.next(0ms), std::nullopt);
  EXPECT_EQ(stream.next(0ms), std::nullopt);
}

TEST(EventStream, EndsWithItsShelf) {
  ChartShelf shelf(10, 1000);
  EventStream stream(shelf, "abc", 1h);
  shelf.close();
  EXPECT_EQ(stream.next(0ms), std::nullopt);
}

}  // namespace kestrel::tool
