#include "chart/bar_places.h"

#include "chart_table.h"

#include <gtest/gtest.h>

#include <functional>

using kestrel::test::dataOf;
using kestrel::tool::barsCover;
using kestrel::tool::ChartRequest;
using kestrel::tool::ElementKind;

namespace {

/// Two bars at one place of x, which each of the other columns tells apart but "same".
constexpr char const* table = "x,y,z,other,same\na,1,1,m,s\na,2,2,n,s\nb,3,3,m,s\n";

bool cover(std::function<void(ChartRequest&)> const& change) {
  ChartRequest request;
  request.element = ElementKind::Bar;
  request.x = "x";
  request.y = "y";
  change(request);
  return barsCover(request, dataOf(table, request));
}

TEST(Bars, CoverEachOtherAtOnePlace) {
  EXPECT_TRUE(cover([](auto&) {}));
}

TEST(Bars, StandApartByWhatSplitsThem) {
  EXPECT_FALSE(cover([](auto& request) { request.z = "z"; }));
  EXPECT_FALSE(cover([](auto& request) { request.color = "other"; }));
  EXPECT_FALSE(cover([](auto& request) { request.cluster = "other"; }));
  EXPECT_FALSE(cover([](auto& request) { request.stack = "other"; }));
}

TEST(Bars, StandApartInDifferentPanels) {
  EXPECT_FALSE(cover([](auto& request) { request.panelRows = {"same", "other"}; }));
  EXPECT_FALSE(cover([](auto& request) { request.panelColumns = {"same", "other"}; }));
}

TEST(Bars, CoverEachOtherWhereTheSplitIsTheSame) {
  EXPECT_TRUE(cover([](auto& request) { request.cluster = "same"; }));
  EXPECT_TRUE(cover([](auto& request) { request.stack = "same"; }));
  EXPECT_TRUE(cover([](auto& request) { request.panelRows = {"same"}; }));
}

TEST(Bars, CoverNothingWhereTheyAreLeftOut) {
  EXPECT_FALSE(cover([](auto& request) { request.excluded = {"a"}; }));
  EXPECT_TRUE(cover([](auto& request) { request.excluded = {"b"}; }));
}

TEST(Bars, AreTheOnlyOnesThatCoverEachOther) {
  EXPECT_FALSE(cover([](auto& request) { request.element = ElementKind::ErrorBar; }));
}

}  // namespace
