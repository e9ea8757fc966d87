#include "extraction.h"

#include "content_rules.h"
#include "content_types.h"
#include "files.h"
#include "image_format.h"
#include "safe_name.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace kestrel::tool {

namespace {

constexpr std::size_t endRecordSize = 8;

/// Two contents that make a file: its name, and then what is in it.
struct NamedFile {
  TypeNumber name;
  TypeNumber content;
  /// Where the sender gave no name.
  char const* usual;
  /// For names without one: what attachments are called need not be the name of a file.
  char const* ending;
};

constexpr NamedFile namedFiles[] = {{CsvName, CsvContent, "attachment.csv", ""},
                                    {GeoJsonName, GeoJson, "attachment", ".json"}};

/// All sizes that were announced.
constexpr char const* sizesName = "sizes.json";

std::string withEnding(std::string const& name, char const* ending) {
  return name.find('.') == std::string::npos ? name + ending : name;
}

std::string endRecord(std::string const& bytes) {
  if (bytes.size() != endRecordSize) return bytes;
  nlohmann::ordered_json const record = {{"editable", word(bytes)}, {"editor", word(bytes.substr(4))}};
  return record.dump(2) + "\n";
}

std::optional<std::string> plainBytes(Send const& send, Content const& content, Form form) {
  if (form == Form::Compressed) return decompressed(content, decompressionLimit(send, content));
  return form == Form::EndRecord ? endRecord(content.bytes()) : content.bytes();
}

std::string imageName(Content const& content, std::string const& bytes) {
  return "image-" + std::to_string(content.first().subtype.value_or(0)) + std::string(imageEnding(bytes));
}

/// Writes the files of one send.
class SendWriter {
 public:
  SendWriter(Send const& send, std::filesystem::path folder, ByteBudget& budget)
      : mSend(&send), mFolder(std::move(folder)), mBudget(&budget) {
    makeFolder(mFolder);
  }

  std::vector<std::string> write() {
    for (Content const& content : mSend->contents) take(content);
    if (!mSizes.empty()) write(sizesName, mSizes.dump(2) + "\n");
    return mWritten;
  }

 private:
  void take(Content const& content) {
    Content const* const before = std::exchange(mBefore, &content);
    ContentType const* const type = findContentType(content.type());
    if (type == nullptr || content.isCut) return;
    if (type->form == Form::Announcement) mSizes[type->name] = content.size();
    if (!hasFile(*type)) return;
    if (auto const bytes = plainBytes(*mSend, content, type->form))
      write(fileName(content, *type, *bytes, before), *bytes);
  }

  void write(std::string const& name, std::string const& bytes) {
    std::string const own = mNames.take(name);
    mBudget->take(ByteBudget::fileCost + bytes.size(), mFolder / own);
    writeFile(mFolder / own, bytes);
    mWritten.push_back(own);
  }

  static bool hasFile(ContentType const& type) { return type.fileName != nullptr || fileOf(type) != nullptr; }

  static NamedFile const* fileOf(ContentType const& type) {
    auto const* const found =
        std::find_if(std::begin(namedFiles), std::end(namedFiles),
                     [&](NamedFile const& file) { return file.content == type.number; });
    return found == std::end(namedFiles) ? nullptr : found;
  }

  static std::string fileName(Content const& content, ContentType const& type, std::string const& bytes,
                              Content const* before) {
    if (type.number == Image) return imageName(content, bytes);
    NamedFile const* const file = fileOf(type);
    if (file == nullptr) return type.fileName;
    bool const named = before != nullptr && before->type() == file->name;
    return withEnding(safeName(named ? before->bytes() : std::string(), file->usual), file->ending);
  }

  Send const* mSend;
  std::filesystem::path mFolder;
  ByteBudget* mBudget;
  NameList mNames;
  Content const* mBefore = nullptr;
  nlohmann::ordered_json mSizes;
  std::vector<std::string> mWritten;
};

}  // namespace

std::vector<std::string> extract(std::vector<Send> const& sends, std::filesystem::path const& folder,
                                 ByteBudget& budget) {
  makeFolder(folder);
  if (sends.size() == 1) return SendWriter(sends.front(), folder, budget).write();
  std::vector<std::string> written;
  for (std::size_t at = 0; at < sends.size(); ++at) {
    std::filesystem::path const own = std::to_string(at + 1);
    for (std::string const& name : SendWriter(sends[at], folder / own, budget).write()) {
      written.push_back((own / name).string());
    }
  }
  return written;
}

}  // namespace kestrel::tool
