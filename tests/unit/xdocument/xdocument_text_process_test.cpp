// The numbers of data sets, which count for the whole process.

#include "xdocument.h"

#include "change_log.h"
#include "chart_test.h"
#include "schema_validator.h"
#include "xgraph.h"

#include "host/messages.h"
#include "model/document.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DataSets : public ChartTest {
 protected:
  void TearDown() override { EXPECT_THAT(schemaErrors(document.AsUTF8()), IsEmpty()); }

  LumoDocument model;
  LumoVisualization& visualization{*model.getVisualization()};
  XDocument document{model};
};

TEST_F(DataSets, AreNumberedFromZeroNameFirst) {
  document.getExternalGraph();
  ChangeLog log(model);
  document.SetDataHandle(u"penguins", u"h1");
  document.SetDataHandle(u"iris", u"h2");
  EXPECT_THAT(log.lines(), ElementsAre("visualization adds extension", "extension dataSetName_0=penguins",
                                       "extension dataSetHandle_0=h1", "extension dataSetName_1=iris",
                                       "extension dataSetHandle_1=h2"));
}

TEST_F(DataSets, GoOnInAnotherDocument) {
  document.getExternalGraph();
  document.SetDataHandle(u"penguins", u"h1");
  document.SetDataHandle(u"iris", u"h2");
  XDocument second;
  second.getExternalGraph();
  second.SetDataHandle(u"mice", u"h3");
  EXPECT_THAT(attributeNames(*second.getVisualization()->getExtension()),
              ElementsAre("dataSetHandle_2", "dataSetName_2"));
}

TEST_F(DataSets, NeedAGraphAndTakeNoNumberWithout) {
  document.SetDataHandle(u"penguins", u"h1");
  EXPECT_EQ(visualization.getExtension(), nullptr);
  document.getExternalGraph();
  document.SetDataHandle(u"penguins", u"h1");
  EXPECT_THAT(attributeNames(*visualization.getExtension()), ElementsAre("dataSetHandle_0", "dataSetName_0"));
}

TEST_F(DataSets, NeedANameAndAHandleAndTakeNoNumberWithout) {
  document.getExternalGraph();
  document.SetDataHandle(u"", u"h1");
  document.SetDataHandle(u"penguins", u"");
  document.SetDataHandle(u"", u"");
  EXPECT_EQ(visualization.getExtension(), nullptr);
  document.SetDataHandle(u"penguins", u"h1");
  EXPECT_THAT(attributeNames(*visualization.getExtension()), ElementsAre("dataSetHandle_0", "dataSetName_0"));
}

TEST_F(DataSets, TakeABuiltGraphToo) {
  document.getGraph();
  document.SetDataHandle(u"penguins", u"h1");
  EXPECT_EQ(attribute(visualization.getExtension(), u"dataSetName_0"), "penguins");
}

TEST_F(DataSets, AreWrittenIntoTheRecordThatThereIs) {
  LumoExtensionVis const* const record = visualization.addExtension();
  document.getExternalGraph();
  document.SetDataHandle(u"penguins", u"h1");
  EXPECT_EQ(visualization.getExtension(), record);
  EXPECT_EQ(attribute(record, u"dataSetHandle_0"), "h1");
}

TEST_F(DataSets, TakeNoNumberWhereTheyFail) {
  document.getExternalGraph();
  {
    ChangeTrap const trap(model, 3, throwGoToCaller());
    EXPECT_THROW(document.SetDataHandle(u"penguins", u"h1"), VexaGoToCaller);
  }
  EXPECT_THAT(attributeNames(*visualization.getExtension()), ElementsAre("dataSetName_0"));
  {
    ChangeTrap const trap(model, 1, throwOrdinaryFailure());
    EXPECT_THROW(document.SetDataHandle(u"mice", u"h2"), OrdinaryFailure);
  }
  expectNoReport(recorder);
  document.SetDataHandle(u"iris", u"h3");
  EXPECT_EQ(attribute(visualization.getExtension(), u"dataSetName_0"), "iris");
  EXPECT_EQ(attribute(visualization.getExtension(), u"dataSetHandle_0"), "h3");
}

TEST_F(DataSets, OfADocumentWithoutAChartAreNone) {
  XDocument empty{std::string()};
  EXPECT_NO_THROW(empty.SetDataHandle(u"penguins", u"h1"));
  document.getExternalGraph();
  document.SetDataHandle(u"iris", u"h2");
  EXPECT_EQ(attribute(visualization.getExtension(), u"dataSetName_0"), "iris");
}

}  // namespace
}  // namespace kestrel::test
