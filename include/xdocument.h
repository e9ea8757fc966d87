#pragma once

#include "chartxmlcontent.h"
#include "kestrel_export.h"

#include "model/chartstring.h"

#include <xercesc/util/XercesDefs.hpp>

#include <memory>
#include <string>
#include <vector>

XERCES_CPP_NAMESPACE_BEGIN
class DOMDocument;
class XercesDOMParser;
XERCES_CPP_NAMESPACE_END

class LumoDocument;
class LumoVisualization;
class VarDataProcessor;
class XGraph;
class XVariable;

/// The root object of one chart. It owns the model document, the graph builder and the data store, holds what
/// the caller has asked of the chart, and sends the chart to the client.
///
/// One thread at a time uses a document and the wrappers on it. A document that could not be made from its
/// text is empty: `implementationExists()` says false.
class KESTREL_API XDocument {
 public:
  /// What to do with a frame or with gridlines.
  enum TEMPL_PARAM_ACT : int { TemplParamLeave = 0, TemplParamShow = 1, TemplParamHide = 2 };

  /// The language of a chart text that has to be converted.
  enum CONVERT_FROM : int { ConvertFromLumoML14 = 0, ConvertFromPDL = 1 };

  /// Second word of the end record: which editor the client offers.
  enum EDITOR : int { EditorDefault = 1, EditorAttachedFile = 2, EditorInteractive = 3 };

  /// First word of the end record. Other values than 0 are the host's.
  enum EDITABLE : int { EditableDefault = 0 };

  /// Tag of the constructor whose text is UTF-8; the value is not looked at.
  enum USE_UTF8 : int { UseUTF8 = 1 };

  /// One colour that the host asks for. The first number is the host's own.
  struct ColorSpec {
    /// As the members say; nothing is checked.
    ColorSpec(int hostValue, int redPart, int greenPart, int bluePart)
        : first(hostValue), red(redPart), green(greenPart), blue(bluePart) {}
    /// The host's own number; not looked at.
    int first;
    int red;    ///< 0 to 255
    int green;  ///< 0 to 255
    int blue;   ///< 0 to 255
  };

  /// A new, empty chart, to be described through `getGraph()`.
  XDocument();

  /// Works on a chart made elsewhere; the caller keeps `document` and must keep it alive.
  explicit XDocument(LumoDocument& document);

  /// Reads chart text (LumoML of any version). On a text that does not parse the failure is reported and the
  /// document stays empty.
  explicit XDocument(std::string const& text);

  /// Reads a chart description in PDL that is UTF-8. Failures are reported, and leave the document empty.
  XDocument(std::string const& text, USE_UTF8 tag);

  /// Reads PDL in the local code page, or LumoML 1.4.
  /// @param reportErrors whether the user is told of failures; the log is in any case
  XDocument(std::string const& text, bool fromPDL, bool reportErrors);

  /// Reads the chart text in a file of the host's template folder; stays empty where there is none. The
  /// number is not used.
  XDocument(std::string const& name, int unused);

  XDocument(XDocument const&) = delete;
  XDocument& operator=(XDocument const&) = delete;
  virtual ~XDocument();

  /// @{
  /// The description that goes to the client beside the chart.
  virtual void SetDescription(char16_t const* description);
  virtual void SetDescription(ChartString const& description);
  /// @}

  /// The builder of the chart's graph, made at the first call together with a data store (unless
  /// `SetChartData` has given one). Owned by the document.
  /// @throws ChartException if the document is empty
  virtual XGraph* getGraph();

  /// Sends the chart: description, chart text, data, CSV files, end record. The document lets go of its data
  /// store then: a second send has no data.
  /// @param ignoredFlag has no effect
  /// @param alreadyComplete sends the chart as it stands
  /// @param clearDataAfterSend clears the graph's data after the send. A store of `SetChartData` that the
  ///        graph holds is the caller's until the data is cleared: it is destroyed then, see
  ///        `XGraph::clearData`
  /// @return true if the last content step that ran has succeeded; what failed is reported
  virtual bool SendChart(bool ignoredFlag, bool alreadyComplete, bool clearDataAfterSend);

  /// A comment for the chart text. A text with two hyphens in a row is ignored: XML comments cannot hold it.
  virtual void SetComment(char16_t const* comment);

  /// The chart's name. Does nothing on an empty document; a failure is logged only.
  virtual void SetName(char16_t const* name);

  /// Protects the chart from completion and from stamps. The call itself does so, whatever its argument: that
  /// says whether file templates are still applied. There is no way back.
  virtual void doNotModify(bool keepFileTemplates);

  /// @{
  /// Appends a chart template's name, a CSV file's name, a template's text. An empty one is ignored.
  virtual void SetChartTemplate(std::string const& name);
  virtual void AddCSVFile(std::string const& name);
  virtual void AddImmediateTemplate(std::string const& xml);
  /// @}

  /// The builder around a chart that came from outside: nothing in the chart is touched and no data store is
  /// made. `getGraph` and this share one builder: whichever runs first decides what both return.
  /// @throws ChartException if the document is empty
  virtual XGraph* getExternalGraph();

  /// The chart text, UTF-8; empty for an empty document.
  virtual std::string AsUTF8() const;

  /// Sends `size` bytes as messages of at most 33,984 payload bytes.
  /// @param data null announces `size` bytes: messages of those sizes whose payload is zero
  /// @return true if every put succeeded; after a failed one the rest is abandoned
  virtual bool SendContent(char const* data, unsigned long size, ChartXMLContentType type,
                           ChartXMLContentSubType subType) const;

  /// Sends the description in the document language and in the English form. An empty description becomes the
  /// translated "Description not set", which the document keeps.
  virtual bool SendDescription() const;

  /// Announces, compresses and sends the chart text. Only a failure of the payload itself counts.
  virtual bool SendXML(std::string const& xml) const;

  /// Sends the data stream of the attached data store. True, and nothing sent, where there is none.
  virtual bool SendData() const;

  /// Sends the end record.
  virtual bool SendDone() const;

  /// Sends nothing and returns false, whatever the arguments: part of the interface only.
  virtual bool SendCount(unsigned int count, ChartXMLContentType type) const;

  /// @{
  /// Starts and ends one use of the XML library. Its count of uses is the only one: the constructors' calls
  /// of `initialize` and the destructor's `terminate` need not balance.
  static void initialize();
  static void terminate();
  /// @}

  /// Parses `text` with the caller's parser, loading nothing from outside the text.
  /// @param errorText takes the parser's message when the text is not well formed
  /// @return the document, owned by the parser and valid until its next parse; null for a null parser and on
  /// any
  ///         failure, which is logged but not shown to the user
  static xercesc::DOMDocument* parseDocument(std::string const& text, std::string& errorText,
                                             xercesc::XercesDOMParser* parser);

  /// False for an empty document.
  bool implementationExists() const;

  /// The root of the chart model.
  /// @throws ChartException if the document is empty
  LumoVisualization* getVisualization() const;

  /// What goes to the client beside the chart: the text of `SetDescription`, or what `SendDescription` put in
  /// the place of an empty one.
  ChartString GetDescription() const;

  /// First word of the end record. An attached CSV file sets it back to the default when it is sent.
  void setEditable(EDITABLE editable);
  /// The first word of the end record, as it would be sent now.
  EDITABLE getEditable() const;
  /// Second word of the end record. An attached CSV file changes it to `EditorAttachedFile` when it is sent.
  void setEditor(EDITOR editor);

  /// Kept for hosts that call it; nothing reads it.
  void setAdvancedCheck(bool advancedCheck);
  /// Makes the completion give the cells of a second graph the looks of the first one's elements
  /// (`customizeCharts::customizePDFCDF`), and variables that cluster the formats of those that they were
  /// made from. False unless it was set.
  void setTableSwatch(bool tableSwatch);
  /// Whether the chosen templates of the user's settings take the place of the default ones. True unless it
  /// was set.
  void applyCTemplate(bool apply);

  /// @{
  /// The frames around the page and around the data. `TemplParamLeave` unless it was set; the completion puts
  /// the action into effect.
  void SetOuterFrame(TEMPL_PARAM_ACT action);
  TEMPL_PARAM_ACT GetOuterFrame() const;
  void SetInnerFrame(TEMPL_PARAM_ACT action);
  TEMPL_PARAM_ACT GetInnerFrame() const;
  /// @}

  /// @{
  /// The lines across the data at the ticks of every X or Y axis that has ticks. `TemplParamLeave` unless it
  /// was set; the completion puts the action into effect.
  void SetXAxisGridlines(TEMPL_PARAM_ACT action);
  TEMPL_PARAM_ACT GetXAxisGridlines() const;
  void SetYAxisGridlines(TEMPL_PARAM_ACT action);
  TEMPL_PARAM_ACT GetYAxisGridlines() const;
  /// @}

  /// @{
  /// The names that `SetChartTemplate` took, and the texts that `AddImmediateTemplate` took: the lists
  /// themselves, which the document keeps.
  std::vector<std::string>& getTemplates();
  std::vector<std::string>& getInlineTemplates();
  /// @}

  /// Appends a colour. The completion makes them the first colours of the chart, in their order.
  void AddColorSpec(ColorSpec const& color);
  /// The list itself, which the document keeps.
  std::vector<ColorSpec>& GetColorSpecs() const;

  /// @{
  /// A style sheet that reworks the chart text before it is sent, and the two maps of the client. The name
  /// first (for messages; that of a map is sent), the content second.
  void setStyleSheet(std::string const& name, std::string const& styleSheet);
  void setLUMOMap(std::string const& name, std::string const& map);
  void setLUMORefMap(std::string const& name, std::string const& map);
  /// @}

  /// Turns the chart into the one that goes to the client: default looks, language, templates, and what the
  /// host asked for in colours, frames and gridlines. `SendChart` and `getChartXML` call it; a second call
  /// does everything again. Failures of the chart model pass to the caller.
  /// @param ignoredFlag has no effect
  void CompleteChart(bool ignoredFlag);

  /// Makes the data store and the chart's variables agree: columns that the store does not know are added to
  /// it, and categorical dates that come with nothing but an input pattern get a relabel for each row.
  /// @return the number of source variables whose column the store held before; 0 without a store
  int fleshOutData();

  /// Completes the chart and gives its text; empty for an empty document.
  std::string getChartXML();

  /// @{
  /// Reworks the chart with `customizeCharts`, which must be of that kind. Not part of the completion.
  bool customizeSPCharts();
  void tweakNetworkDiagram(XVariable const& variable);
  /// @}

  /// Applies the templates of the user's settings in their order (styles, options, then the chosen or the
  /// default ones), then those of `applyUserTemplates`.
  /// @return how many were applied; 0 for an empty document
  int applyTemplates();

  /// Applies the immediate templates, then those that `SetChartTemplate` named. A template that is missing or
  /// fails is reported, and the others go on.
  /// @param baseline the chart as it was before any template; may be null
  /// @return how many of the named ones were applied
  int applyUserTemplates(LumoVisualization* baseline);

  /// Applies a template that is given without its root element.
  /// @return whether the template engine took it
  bool applyImmediateTemplate(std::string const& fragment);

  /// Applies the user's options templates or, where there are none, styles templates.
  void applyStyleTemplate();

  /// The content of a file in the host's template folder; empty where there is none.
  std::string fetchTemplateFile(std::string name);

  /// Whether all options templates ask for colours only; true where there are none.
  static bool useColorsOnly();

  /// The colours that the first "setColor" of each options template names.
  static std::vector<ChartString> getColors();

  /// Gives the chart the language of the host, unless it has one.
  void setLanguage();

  /// Names a data set at the client, for as many calls as there are in the process: each takes the next
  /// number. Nothing is done before the chart has a graph builder, and for an empty text.
  void SetDataHandle(ChartString const& name, ChartString const& handle);

  /// Writes into the record of the chart's special parts. As the two below, makes the graph builder if there
  /// is none, in the form of `getExternalGraph`.
  /// @throws ChartException if the document is empty
  void addExtension(char16_t const* name, char16_t const* value);

  /// Tells the client to run a function of its own on the graph. Narrow text is in the local code page.
  void addSwingController(std::string function);

  /// Shows percent behind the numbers of the Y axis and of the first interval's labels.
  /// @return whether the axis has ticks that it could be written to
  bool addPercentSuffixToYAxis();

  /// How many of the names are ids of data sources of the chart, of any kind, and how many are not. Guarded.
  void getSourceNameCount(std::vector<std::string> const& names, unsigned int& found, unsigned int& notFound);

  /// Makes the document use the caller's data store, which the caller keeps until the data is cleared: a
  /// graph that `getGraph` makes after this holds the store, and `XGraph::clearData` destroys it. A store
  /// that `getGraph` made before stays with the graph, and ends with the document.
  void SetChartData(VarDataProcessor* data);

 private:
  struct XDocumentData;

  void convertFromLumoML(std::string const& text);
  void convertXML(std::string const& text, CONVERT_FROM from, bool reportErrors);
  void requireDocument() const;
  LumoVisualization& chart() const;
  LumoVisualization& chartWithGraph();
  void applyColors();
  void setGridlines(char16_t const* role, TEMPL_PARAM_ACT action);
  void stamp(LumoVisualization& visualization);
  bool sendAll(LumoVisualization& visualization, std::string const& text);
  bool sendContents(LumoVisualization& visualization, std::string const& text);
  void sendCsvFile(std::string const& name, bool& success);
  void releaseData(bool clear);

  std::unique_ptr<XDocumentData> mData;
};
