#include "extraction.h"

#include "content_rules.h"
#include "content_types.h"
#include "files.h"
#include "safe_name.h"

#include <nlohmann/json.hpp>

#include <optional>

namespace kestrel::tool {

namespace {

constexpr std::size_t endRecordSize = 8;

/// Two contents that make a file: its name, and then what is in it.
struct NamedFile {
  TypeNumber name;
  TypeNumber content;
  char const* usual;
};

constexpr NamedFile namedFiles[] = {{CsvName, CsvContent, "attachment.csv"},
                                    {GeoJsonName, GeoJson, "attachment.json"}};

std::string endRecord(std::string const& bytes) {
  if (bytes.size() != endRecordSize) return bytes;
  nlohmann::ordered_json const record = {{"editable", word(bytes)}, {"editor", word(bytes.substr(4))}};
  return record.dump(2) + "\n";
}

std::optional<std::string> plainBytes(Send const& send, Content const& content, Form form) {
  if (form == Form::Compressed) return decompressed(content, decompressionLimit(send, content));
  return form == Form::EndRecord ? endRecord(content.bytes()) : content.bytes();
}

/// The file name's last piece, for images: what kind of image it is, is the subtype's secret.
std::string imageName(Content const& content) {
  return "image-" + std::to_string(content.first().subtype.value_or(0));
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
    return mWritten;
  }

 private:
  void take(Content const& content) {
    ContentType const* const type = findContentType(content.type());
    if (type == nullptr) return;
    auto const name = fileName(content, *type);
    mBefore = &content;
    if (!name || content.isCut) return;
    auto const bytes = plainBytes(*mSend, content, type->form);
    if (!bytes) return;
    std::string const own = mNames.take(*name);
    mBudget->take(ByteBudget::fileCost + bytes->size(), mFolder / own);
    writeFile(mFolder / own, *bytes);
    mWritten.push_back(own);
  }

  std::optional<std::string> fileName(Content const& content, ContentType const& type) const {
    if (type.number == Image) return imageName(content);
    if (type.fileName != nullptr) return type.fileName;
    for (NamedFile const& file : namedFiles) {
      if (file.content != content.type()) continue;
      bool const named = mBefore != nullptr && mBefore->type() == file.name;
      return safeName(named ? mBefore->bytes() : std::string(), file.usual);
    }
    return std::nullopt;
  }

  Send const* mSend;
  std::filesystem::path mFolder;
  ByteBudget* mBudget;
  NameList mNames;
  Content const* mBefore = nullptr;
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
