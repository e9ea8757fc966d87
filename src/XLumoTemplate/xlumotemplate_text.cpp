// Texts on their way to the converter, and names of files on their way back.

#include "xlumotemplate_data.h"

#include "support/product_paths.h"

#include "host/chartbase.h"
#include "host/files.h"
#include "host/text.h"

namespace {

struct Escape {
  char16_t const* text;
  char16_t const* replacement;
};

/// Each is applied to the whole of what those before it have left. Three of them are not what URIs mean by
/// the code: %22 is an apostrophe, and %3E and %25 are both "<"; relied upon, as the order is.
constexpr Escape escapes[] = {
    {u"///", u"//"}, {u"%20", u" "}, {u"%22", u"'"}, {u"%3C", u"<"}, {u"%3E", u"<"},  {u"%23", u"#"},
    {u"%25", u"<"},  {u"%7B", u"{"}, {u"%7D", u"}"}, {u"%7C", u"|"}, {u"%5C", u"\\"}, {u"%5E", u"^"},
    {u"%7E", u"~"},  {u"%5B", u"["}, {u"%5D", u"]"}, {u"%60", u"`"},
};

}  // namespace

std::string XLumoTemplate::Data::updateText(std::string const& text) {
  std::string const path = kestrel::productPaths().getDictionaryPath();
  // No procedure is chosen, unlike elsewhere: relied upon.
  FacSTDictionary dictionary(path);
  std::string const codePage = kestrel::codePageOfDictionary(path);
  ChartString updated;
  updated.assignUTF8(text);
  ChartBase::updateText(updated, &dictionary, codePage);
  return updated.toUTF8();
}

void XLumoTemplate::Data::replaceSpecialChars(ChartString& uri) {
  bool const isMarked = uri.xc_str()[0] == u'+';
  uri.replaceSubstring(isMarked ? u"+file:/" : u"file:", u"");
  for (Escape const& row : escapes) uri.replaceSubstring(row.text, row.replacement);
}
