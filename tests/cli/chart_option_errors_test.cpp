// What `kestrel chart` says of options that do not go together, or not with the data: one line, and an exit
// code.

#include "cli_fixture.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

using kestrel::test::CliTest;
using kestrel::test::exampleData;
using kestrel::test::Outcome;

namespace {

struct Wrong {
  char const* name;
  std::vector<std::string> arguments;
  /// Behind "kestrel: ", with PENGUINS for the file.
  char const* problem;
};

class WrongOption : public CliTest, public testing::WithParamInterface<Wrong> {};

TEST_P(WrongOption, IsToldInOneLine) {
  std::string const data = exampleData("penguins.csv");
  std::vector<std::string> arguments = {"chart", data, "-o", "out"};
  arguments.insert(arguments.end(), GetParam().arguments.begin(), GetParam().arguments.end());
  std::string expected = std::string("kestrel: ") + GetParam().problem + "\n";
  auto const file = expected.find("PENGUINS");
  if (file != std::string::npos) expected.replace(file, 8, data);

  Outcome const run = kestrel(arguments);
  EXPECT_EQ(run.exit, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_EQ(run.err, expected);
  EXPECT_FALSE(exists("out"));
}

Wrong const wrong[] = {
    {"NoY",
     {"--element", "errorbar", "--x", "species"},
     "--y is required with --element errorbar; name the column of the Y axis"},
    {"YOfAHistogram",
     {"--element", "histogram", "--x", "body_mass_g", "--y", "body_mass_g"},
     "--y does not go with --element histogram, which counts rows; it goes with point, bar, line, box and "
     "errorbar"},
    {"ClusterAndStack",
     {"--element", "bar", "--x", "species", "--y", "body_mass_g", "--cluster", "sex", "--stack", "island"},
     "--cluster and --stack exclude each other; leave one of them out"},
    {"ClusterAndColor",
     {"--element", "bar", "--x", "species", "--y", "body_mass_g", "--cluster", "sex", "--color", "island"},
     "--cluster and --color exclude each other; leave one of them out"},
    {"ClusterOfALine",
     {"--element", "line", "--x", "species", "--y", "body_mass_g", "--cluster", "sex"},
     "--cluster does not go with --element line; it goes with bar, box and errorbar"},
    {"StackOfPoints",
     {"--element", "point", "--x", "species", "--y", "body_mass_g", "--stack", "sex"},
     "--stack does not go with --element point; it goes with bar, histogram and pyramid"},
    {"LabelOfPoints",
     {"--element", "point", "--x", "species", "--y", "body_mass_g", "--label", "sex"},
     "--label does not go with --element point; it goes with box"},
    {"BinsOfPoints",
     {"--element", "point", "--x", "species", "--y", "body_mass_g", "--bins", "3"},
     "--bins does not go with --element point; it goes with histogram and pyramid"},
    {"NoBins",
     {"--element", "histogram", "--x", "body_mass_g", "--bins", "0"},
     "--bins '0' is no whole number above 0; give the number of bins, such as 20"},
    {"NegativeBins",
     {"--element", "histogram", "--x", "body_mass_g", "--bins", "-1"},
     "--bins '-1' is no whole number above 0; give the number of bins, such as 20"},
    {"TransposedPyramid",
     {"--element", "pyramid", "--x", "body_mass_g", "--panel-column", "sex", "--transpose"},
     "--transpose does not go with --element pyramid, which lies on its side already; it goes with point, "
     "bar, line, histogram, box and errorbar"},
    {"PyramidWithoutSides",
     {"--element", "pyramid", "--x", "body_mass_g"},
     "--element pyramid needs --panel-column once, with a column of two categories, one for each side; it "
     "was not given"},
    {"PyramidOfThreeSides",
     {"--element", "pyramid", "--x", "body_mass_g", "--panel-column", "species"},
     "PENGUINS: column 'species' for --panel-column has 3 categories, but a pyramid has two sides; choose a "
     "column of two categories"},
    {"PanelsOfOneColumn",
     {"--element", "box", "--x", "species", "--y", "body_mass_g", "--panel-column", "sex", "--panel-row",
      "sex"},
     "--panel-row and --panel-column name the column 'sex' twice; a column splits the chart once"},
    {"PanelsOfNumbers",
     {"--element", "box", "--x", "species", "--y", "body_mass_g", "--panel-column", "bill_depth_mm"},
     "PENGUINS: column 'bill_depth_mm' for --panel-column has numbers, but categories are needed; choose a "
     "column of text, or give --categorical too with this one"},
    {"PanelsOfAnUnknownColumn",
     {"--element", "box", "--x", "species", "--y", "body_mass_g", "--panel-row", "iland"},
     "PENGUINS:1: there is no column 'iland' for --panel-row; did you mean 'island'? The columns are: "
     "species, "
     "island, bill_length_mm, bill_depth_mm, flipper_length_mm, body_mass_g, sex"},
    {"ClusterOfNumbers",
     {"--element", "box", "--x", "species", "--y", "body_mass_g", "--cluster", "bill_depth_mm"},
     "PENGUINS: column 'bill_depth_mm' for --cluster has numbers, but categories are needed; choose a column "
     "of text, or give --categorical too with this one"},
    {"HistogramOfTexts",
     {"--element", "histogram", "--x", "species"},
     "PENGUINS: column 'species' for --x has categories, but --element histogram needs numbers or dates; "
     "choose another column"},
    {"BoxOfTexts",
     {"--element", "box", "--x", "species", "--y", "island"},
     "PENGUINS: column 'island' for --y has categories, but --element box needs numbers or dates; choose "
     "another column"},
    {"SortedNumbers",
     {"--element", "point", "--x", "bill_depth_mm", "--y", "body_mass_g", "--sort", "ascending"},
     "PENGUINS: column 'bill_depth_mm' for --x with --sort has numbers, but categories are needed; choose a "
     "column of text, or give --categorical too with this one"},
    {"AnotherOrder",
     {"--element", "box", "--x", "species", "--y", "body_mass_g", "--sort", "up"},
     "--sort: up not in {ascending,descending}; kestrel --help tells more"},
    {"UnknownCategory",
     {"--element", "box", "--x", "species", "--y", "body_mass_g", "--exclude", "Gento"},
     "PENGUINS: there is no category 'Gento' in column 'species' for --exclude; did you mean 'Gentoo'? The "
     "categories are: Adelie, Chinstrap, Gentoo"},
    {"EveryCategory",
     {"--element", "box", "--x", "sex", "--y", "body_mass_g", "--exclude", "male", "--exclude", "female"},
     "PENGUINS: --exclude leaves out every category of column 'sex'; keep one of them"},
    {"ReferenceInWords",
     {"--element", "box", "--x", "species", "--y", "body_mass_g", "--reference-y", "heavy"},
     "--reference-y 'heavy' is no number; its axis shows numbers, such as 12.5"},
    {"ReferenceAmongCategories",
     {"--element", "box", "--x", "species", "--y", "body_mass_g", "--reference-x", "1"},
     "--reference-x needs an axis of numbers or dates, but column 'species' has categories; leave it out, or "
     "choose another column for the axis"},
};

INSTANTIATE_TEST_SUITE_P(Of, WrongOption, testing::ValuesIn(wrong),
                         [](auto const& row) { return row.param.name; });

class WrongReference : public CliTest {};

TEST_F(WrongReference, OnDatesIsToldHowDatesAreWritten) {
  Outcome const run = kestrel({"chart", exampleData("seattle-weather.csv"), "--element", "line", "--x",
                               "date", "--y", "wind", "--reference-x", "1.1.2013", "-o", "out"});
  EXPECT_EQ(run.exit, 1);
  EXPECT_EQ(
      run.err,
      "kestrel: --reference-x '1.1.2013' is no date; its axis shows dates: write it as yyyy-MM-dd, with or "
      "without a time\n");
}

}  // namespace
