#include "support/product_paths.h"

#include "chart_test.h"

#include "host/files.h"

#include <string>
#include <vector>

namespace kestrel::test {
namespace {

class ProductPaths : public ChartTest {};

TEST_F(ProductPaths, AreTheHostsOfTheProductsOwnNumber) {
  EXPECT_EQ(productPaths().getBasePath(), "/base/");
  EXPECT_EQ(recorder.lines(), std::vector<std::string>{"PathInstance::getBasePath(kind=3)"});
}

TEST_F(ProductPaths, PutTemplatesBehindTheBaseWithoutASeparator) {
  recorder.services().paths->base = "/base";
  EXPECT_EQ(productTemplate("a.lumotemplate"), "/basetemplate/a.lumotemplate");
}

TEST_F(ProductPaths, TellTheCodePageByTheFolderBehindTheBase) {
  EXPECT_EQ(codePageOfDictionary("/base/ru/more/"), "CP1251");
  EXPECT_EQ(codePageOfDictionary("/base/zh_tw/"), "CP950");
  EXPECT_EQ(codePageOfDictionary("/base/zh-tw/"), "CP1252");
  EXPECT_EQ(codePageOfDictionary("/b"), "CP1252");
}

}  // namespace
}  // namespace kestrel::test
