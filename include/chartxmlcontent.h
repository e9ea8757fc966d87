#pragma once

/// The type of one piece of content. The numbers are the wire values: the first byte of a chart content
/// message (307), the second word of an interactive content message (318).
enum ChartXMLContentType : unsigned int {
  CXT_DESCRIPTION = 0,          ///< chart description, UTF-8 text, not compressed
  CXT_XML = 1,                  ///< chart text, compressed
  CXT_XML_SIZE = 2,             ///< announces the size of the uncompressed chart text
  CXT_DONE = 3,                 ///< end record: editable and editor, 4 bytes each
  CXT_XML_COMPRESSED_SIZE = 4,  ///< announces the size of the compressed chart text
  CXT_DATA_SIZE = 5,            ///< announces the size of the data stream
  CXT_CSV_CONTENT = 6,          ///< content of an attached CSV file, raw
  CXT_IMAGE = 7,                ///< image, compressed; the subtype is the caller's
  CXT_DATA = 8,                 ///< data stream of the chart, raw
  CXT_DESCRIPTION_ENG = 9,      ///< chart description in the English form, UTF-8 text
  CXT_MAP_INFO = 10,            ///< map information record, raw
  CXT_CSV_NAME = 11,            ///< name of an attached CSV file
  CXT_EMBER_JSON = 12,          ///< engine chart JSON, compressed
  CXT_EMBER_TEMPLATE = 13,      ///< engine JSON template, compressed
  CXT_GEOJSON_NAME = 14,        ///< name of a GeoJSON attachment
  CXT_GEOJSON = 15,             ///< content of that attachment, compressed
  CXT_INTERACTIVE_JSON = 16,    ///< interactive JSON, compressed
  CXT_PROCEDURE_NAME = 17,      ///< procedure name
  CXT_JSON_PATH = 18,           ///< JSON path
  CXT_OPTIONS = 19,             ///< options
  CXT_CHART_OPTIONS = 20,       ///< chart options of a graph service
  CXT_SERVICE_TEMPLATE = 21,    ///< service template, XML text, not compressed
};

/// Qualifies a content type. The library never looks at the value: 0 nearly everywhere, an image format for
/// `CXT_IMAGE`, 4 for `CXT_CHART_OPTIONS`.
enum ChartXMLContentSubType : unsigned int {};
