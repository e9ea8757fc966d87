#pragma once

#include "sending_test.h"

#include <gmock/gmock.h>

/// Tests that documents sent on their own side have in common: images, interactive pages, charts of the
/// engine, services. A family says what is its own, and instantiates them:
///
///   struct Images {
///     using Document = XImage;
///     static bool send(Document& document) { return document.sendImage(); }
///     static constexpr int editor = 1;            ///< That of the end record where nobody set one.
///     static constexpr bool keepsDefault = true;  ///< Whether it keeps the default description.
///   };
///   INSTANTIATE_TYPED_TEST_SUITE_P(Image, SentAlone, Images);
namespace kestrel::test {

template <typename Family>
class SentAlone : public SendingTest {
 protected:
  bool send() { return Family::send(document); }

  typename Family::Document document;
};

TYPED_TEST_SUITE_P(SentAlone);

TYPED_TEST_P(SentAlone, HasTheEditorOfItsKind) {
  this->send();
  EXPECT_EQ(endRecord(this->contents()), (EndRecord{0, TypeParam::editor}));
}

TYPED_TEST_P(SentAlone, HasTheEditorThatWasSet) {
  this->document.setEditor(TypeParam::editor == 3 ? XDocument::EditorDefault : XDocument::EditorInteractive);
  this->send();
  EXPECT_EQ(endRecord(this->contents()), (EndRecord{0, TypeParam::editor == 3 ? 1 : 3}));
}

TYPED_TEST_P(SentAlone, WithoutADescriptionHasTheTranslatedDefault) {
  this->recorder.services().texts->texts["Description not set"] = "Größe fehlt";
  this->send();
  EXPECT_EQ(this->contents().at(0).bytes, "Größe fehlt");
  EXPECT_EQ(this->contents().at(1).bytes, "Grosse fehlt");
  EXPECT_EQ(this->document.GetDescription().toUTF8(), TypeParam::keepsDefault ? "Größe fehlt" : "");
}

REGISTER_TYPED_TEST_SUITE_P(SentAlone, HasTheEditorOfItsKind, HasTheEditorThatWasSet,
                            WithoutADescriptionHasTheTranslatedDefault);

}  // namespace kestrel::test
