#pragma once

#include <string>
#include <vector>

/// What is wrong with a chart's text by the schema of the chart markup (or with its XML), one line for each
/// fault as "line:column: message"; empty for a valid chart.
std::vector<std::string> schemaErrors(std::string const& xml);

/// The same of the text of a chart template, by the schema of the template language.
std::vector<std::string> templateSchemaErrors(std::string const& xml);

/// The same of a request for a chart from a visualization template, and of a reply to one.
std::vector<std::string> templateRequestSchemaErrors(std::string const& xml);
std::vector<std::string> templateReplySchemaErrors(std::string const& xml);

/// The same of a service template.
std::vector<std::string> serviceTemplateSchemaErrors(std::string const& xml);
