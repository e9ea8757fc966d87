#pragma once

#include <xercesc/parsers/XercesDOMParser.hpp>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace kestrel {

/// A parser for chart text: without validator and grammar pool, and with the limits below built in.
std::unique_ptr<xercesc::XercesDOMParser> makeChartParser();

/// Refuses what chart text must not have, before a parser sees it that has no such limits of its own: a
/// document type declaration (entities could grow without bound), elements nested beyond what recursive code
/// can take, and more text than a chart can be. Text that is not well formed is left to the parser.
/// @throws xercesc::SAXParseException
void refuseUnsafeText(std::string_view text, xercesc::XercesDOMParser const& parser);

/// Parses a text with the caller's parser, loading nothing from outside the text. What fails is logged, and a
/// text that is not well formed is dumped too; the user is not told.
/// @param source names the text to the parser
/// @param errorText takes the parser's message where the text is not well formed
/// @return the document, owned by the parser and valid until its next parse; null on any failure, the host's
/// unwinding signal among them, which is relied upon
xercesc::DOMDocument* parsedText(std::string const& text, char const* source, std::string& errorText,
                                 xercesc::XercesDOMParser& parser);

/// Elements nested deeper than this are refused.
constexpr unsigned int deepestElement = 1000;

/// Chart text longer than this is refused, in bytes.
constexpr std::size_t longestText = std::size_t{128} * 1024 * 1024;

/// An element with more attributes is refused: the DOM searches them one by one.
constexpr std::size_t mostAttributes = 10'000;

/// Text with more elements and attributes than this is refused. In memory each takes a few hundred bytes.
constexpr std::size_t mostNodes = 4'000'000;

}  // namespace kestrel
