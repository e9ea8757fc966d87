#include "content_types.h"

#include <array>

namespace kestrel::tool {

namespace {

/// By number.
constexpr std::array<ContentType, 22> contentTypes{{
    {Description, "description", Form::Text, "description.txt"},
    {ChartText, "chart text", Form::Compressed, "chart.xml"},
    {ChartTextSize, "chart text size", Form::Announcement, nullptr},
    {Done, "done", Form::EndRecord, "done.json"},
    {CompressedSize, "compressed size", Form::Announcement, nullptr},
    {DataSize, "data size", Form::Announcement, nullptr},
    {CsvContent, "CSV content", Form::Bytes, nullptr},
    {Image, "image", Form::Compressed, "image"},
    {Data, "data", Form::Stream, "data.arrows"},
    {EnglishDescription, "English description", Form::Text, "description.eng.txt"},
    {MapInfo, "map information", Form::MapRecord, "map-information.bin"},
    {CsvName, "CSV name", Form::Bytes, nullptr},
    {EngineJson, "engine JSON", Form::Compressed, "engine.json"},
    {EngineTemplate, "engine template", Form::Compressed, "engine-template.json"},
    {GeoJsonName, "GeoJSON name", Form::Bytes, nullptr},
    {GeoJson, "GeoJSON", Form::Compressed, nullptr},
    {InteractiveJson, "interactive JSON", Form::Compressed, "interactive.json"},
    {ProcedureName, "procedure name", Form::Bytes, "procedure-name.txt"},
    {JsonPath, "JSON path", Form::Bytes, "json-path.txt"},
    {Options, "options", Form::Bytes, "options.txt"},
    {ChartOptions, "chart options", Form::Bytes, "chart-options.txt"},
    {ServiceTemplate, "service template", Form::Text, "service-template.xml"},
}};

}  // namespace

ContentType const* findContentType(std::uint32_t number) {
  return number < contentTypes.size() ? &contentTypes[number] : nullptr;
}

}  // namespace kestrel::tool
