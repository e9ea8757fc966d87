#pragma once

#include <cstdint>

namespace kestrel::tool {

/// How the payload of a content type is to be read.
enum class Form {
  Text,          ///< UTF-8
  Bytes,         ///< whatever the sender has
  Compressed,    ///< a zlib stream
  Announcement,  ///< zeros: what counts is the number of bytes
  Stream,        ///< data of the chart
  EndRecord,     ///< two words of four bytes
  MapRecord,     ///< two maps and their names, each behind its length
};

/// What is known of a content type. The numbers are the wire's; nothing here is shared with the sender.
struct ContentType {
  std::uint32_t number;
  char const* name;
  Form form;
  /// Name of the file that the content is extracted to. Null for what has no file of its own: announcements,
  /// which stand in one together, and names and contents that make a file together.
  char const* fileName;
};

/// Null for a number that is none.
ContentType const* findContentType(std::uint32_t number);

/// The types that the rules name.
enum TypeNumber : std::uint32_t {
  Description = 0,
  ChartText = 1,
  ChartTextSize = 2,
  Done = 3,
  CompressedSize = 4,
  DataSize = 5,
  CsvContent = 6,
  Image = 7,
  Data = 8,
  EnglishDescription = 9,
  MapInfo = 10,
  CsvName = 11,
  EngineJson = 12,
  EngineTemplate = 13,
  GeoJsonName = 14,
  GeoJson = 15,
  InteractiveJson = 16,
  ProcedureName = 17,
  JsonPath = 18,
  Options = 19,
  ChartOptions = 20,
  ServiceTemplate = 21,
};

}  // namespace kestrel::tool
