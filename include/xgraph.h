#pragma once

#include "kestrel_export.h"
#include "xaxis.h"
#include "xbaseelement.h"
#include "xelement.h"
#include "xlegend.h"
#include "xsource.h"
#include "xvariable.h"

#include "host/data_types.h"
#include "model/chartstring.h"

#include <string>
#include <vector>

class CTVariableType;
class LumoExtensionVis;
class LumoGraph;
class LumoVisualization;
class VarDataProcessor;

namespace kestrel {
struct ElementRecipe;
struct TitleRecipe;
}  // namespace kestrel

/// The builder of one graph. Each call writes nodes into the chart model at once and gives a thin wrapper on
/// what it added; everything that exists is found again in the model, by position or by id.
///
/// A wrapper must not outlive the chart's document. Unless it says so, an operation lets failures of the
/// model pass to the caller; the ones that are called guarded report them and return their empty value.
class KESTREL_API XGraph : public XBaseElement {
 public:
  /// The side of the panels that a panel variable varies along.
  enum ROLE : int { ROLE_ROW = 0, ROLE_COLUMN = 1 };

  /// @{
  /// The ids of the axes that a graph makes.
  static char16_t const _primaryXAxisId[];
  static char16_t const _secondaryXAxisId[];
  static char16_t const _primaryYAxisId[];
  static char16_t const _secondaryYAxisId[];
  static char16_t const _zAxisId[];
  /// @}

  /// Makes a new graph in the visualization. Guarded.
  /// @param vdp the chart's data store, may be null; stays its owner's until `clearData`
  XGraph(LumoVisualization& lumo, VarDataProcessor* vdp);

  /// Attaches to the first graph that the visualization holds, and to its last container style. Guarded.
  explicit XGraph(LumoVisualization& lumo);

  /// @{
  /// A copy is a second handle on the same graph, with its own list of panel variables.
  XGraph(XGraph const&) = default;
  XGraph& operator=(XGraph const&) = default;
  /// @}

  ~XGraph() override;

  /// A new data source. The caller owns the wrapper and keeps it alive as long as `clearData` may be called;
  /// needs a graph with a data store.
  virtual XSource* AddSource();

  /// A variable over a column of the procedure's data, with the host variable's labels and print format.
  virtual XVariable AddVariable(Vexa_Variable& variable, XSource& source, ProcedureDataSource const& data,
                                bool categorical);

  /// A variable whose values the procedure computes. An empty label is not written.
  virtual XVariable AddAggregatedVariable(XSource& source, bool categorical, ChartString const& label);

  /// The axes are found or made; a label that is not empty replaces the axis's text.
  virtual XAxis AddPrimaryXAxis(ChartString const& label);
  /// The Y axis that maps its dimension directly.
  virtual XAxis AddPrimaryYAxis(ChartString const& label);

  /// A line element. The ids of elements end in the number of elements of their list, bars and error bars
  /// sharing one row of numbers.
  /// @param name may be null or empty; part of the id, with blanks as underscores
  virtual XElement AddLineElement(char16_t const* name);
  /// As `AddLineElement`: an interval element without a name. The flag is part of its id only.
  virtual XElement AddBarElement(bool clustered);
  /// As `AddLineElement`: a point element without a name.
  virtual XElement AddPointElement();

  /// The first or second legend of the chart; further calls give the second again.
  /// @param text its title, or null for none
  virtual XLegend addLegend(char16_t const* text);

  /// @{
  /// Titles and footnotes. False, and nothing changed, for a null or empty text. Guarded. A second call makes
  /// a second frame, except for the subtitle, which keeps its frame and takes the new text.
  virtual bool AddTitle1(char16_t const* text);
  virtual bool AddTitle2(char16_t const* text);
  virtual bool AddSubTitle(char16_t const* text);
  virtual bool AddFootnote1(char16_t const* text);
  virtual bool AddFootnote2(char16_t const* text);
  virtual bool AddFootnote3(char16_t const* text);
  /// @}

  /// The second axis of the X dimension, on the opposite side. The primary axis must be there, and the call
  /// is made once: on a dimension with no axis, or with two, the result is a wrapper on an axis that stands
  /// outside the chart.
  virtual XAxis AddSecondaryXAxis(ChartString const& label);
  /// The Y axis that shows a value derived from its dimension. The flag is not read.
  virtual XAxis AddDerivedYAxis(ChartString const& label, bool flag);
  /// Makes sure that the Y dimension exists, without an axis. Guarded.
  virtual void AddEmptyYDimension();
  /// The axis of the third dimension.
  virtual XAxis AddZAxis(ChartString const& label);

  /// An interval element with the error bar statistic, drawn as an I-beam.
  virtual XElement AddErrorBarElement();

  /// Gives all panels equal scales on their axes. Guarded.
  virtual void makeIsotropic(bool center);
  /// Adds a transposition of the axes; two calls add two. Guarded.
  virtual void transpose();

  /// Opens a paneling: nothing to be done.
  virtual void BeginPaneling();
  /// Collects a panel variable. A variable that is not categorical is reported and thrown.
  virtual void PanelingAddCrossVariable(XVariable& variable, ROLE role);
  /// As `PanelingAddCrossVariable`; turns the whole list of its role into a nest.
  virtual void PanelingAddNestVariable(XVariable& variable, ROLE role);
  /// Moves every panel axis to the other side. Guarded.
  /// @return the number of axes
  virtual int setPanelAxesOpposite();

  /// Throws all data away and opens every source in a new, empty store. The graph destroys the store that it
  /// had, also one that it was given. The model is unchanged.
  /// @return the new store, owned by the chart's document (or by the caller of a graph of his own)
  virtual VarDataProcessor* clearData();

  /// Gives every coordinates of the graph equal scales. Guarded.
  /// @return whether a transform was added
  virtual bool addSameRatioTransform(bool center);

  /// The sum of variables; at least two.
  virtual XVariable AddExpressionVariable(std::vector<XVariable*> variables, bool categorical);

  /// The case number of the procedure's data. Only `systemVariable` true is supported; false is reported.
  virtual XVariable AddSystemVariable(bool systemVariable, XSource& source, bool categorical);

  /// @{
  /// Variables over system columns of a source that exists: the last one whose id matches, ignoring case.
  /// @throws ChartException (reported) if there is none
  virtual XVariable AddCaseNumVariable(std::string const& sourceName);
  virtual XVariable AddWeightVariable(std::string const& sourceName);
  /// @}

  /// A variable over a named column of a source that exists: the first one whose id matches, ignoring case.
  /// @throws ChartException (reported) if there is none
  virtual XVariable AddExistingVariable(ChartString const& sourceId, bool categorical,
                                        ChartString const& sourceVariableName);

  /// An interval element with the statistic of a histogram.
  XElement AddHistogramElement();
  /// An interval element for one half of a population pyramid, which shows all its labels.
  XElement AddPyramidElement();
  /// A box plot. Its parts have styles of their own, whose ids are the same for all box plots. Guarded: where
  /// it cannot be made at all, the result is a wrapper on an element outside the chart.
  /// @param labelVariable labels the outliers; may be null
  XElement AddBoxplotElement(XVariable* labelVariable);
  /// A label frame that shows three figures of an element's statistic, each behind a text. Guarded.
  /// @param firstText to @param thirdText null leaves the text and its figure out
  void AddHistogramStatisticsSummary(XElement const& element, char16_t const* firstText,
                                     char16_t const* secondText, char16_t const* thirdText);

  /// A line at a value of x or y, given as text that is passed on as it stands; empty for none. Guarded.
  /// @param name may be null or empty; part of the id, blanks and all
  /// @param facet number of the facet level that `values` belong to
  /// @param values panels by the value of their variable; null or empty shows the line in all panels
  /// @param equal hides the line in those panels; false hides it in all others
  void AddReferenceLine(std::string const& x, std::string const& y, char16_t const* name, int facet,
                        std::vector<double> const* values, bool equal);

  /// @{
  /// A line at a value of one direction, in all panels. Guarded.
  /// @param name may be null or empty; part of the id
  void AddXReferenceLine(double value, char16_t const* name);
  void AddYReferenceLine(double value, char16_t const* name);
  /// @}

  /// A line along a function, as text that is passed on as it stands. Guarded.
  void AddFunctionLine(std::string const& function, char16_t const* name);

  /// Collects a measure that stands beside the others in one graph, categorical or not.
  void PanelingAddBlendVariable(XVariable& variable);
  /// Makes panels, or the blend, of what was collected; a blend alone, if there is one. The lists are kept,
  /// so that a second call makes everything again. Guarded.
  /// @param cross names the method of the faceting: cross, or nest
  void EndPaneling(bool cross, bool unused);
  /// The facet level of a blend.
  void addBlendFacetLevel(unsigned int level);
  /// A facet level with its axis, label and ticks.
  /// @param level its number, from 1; raised by one
  /// @param label null counts as empty
  /// @param gap distance from panel to panel, with its unit
  /// @param labelAngle of the tick labels, in degrees; 0 is left out
  void addFacetLevel(unsigned int& level, char16_t const* label, char16_t const* gap, double labelAngle);
  /// Hides the label of every panel axis by new styles. Guarded.
  void HideAllPanelLabels();

  /// Makes the panels of a population pyramid; needs exactly one column variable, and does nothing otherwise.
  /// Guarded.
  void EndPyramidPaneling(bool unused);
  /// Turns the chart on its side and reflects every other panel; two calls do both twice. Guarded.
  void MirrorCharts();

  /// Shows the chart from a point in space, with planes and a frame. Angles are in degrees. Without
  /// coordinates only the planes and the frame are made. Guarded.
  void make3D(double distance, double phi, double theta, double zeta);

  /// @{
  /// Size of the whole chart, limited to 0.5 to 10 inches. A failure is logged.
  void setOuterFrameHeight(double inches);
  void setOuterFrameWidth(double inches);
  /// @}

  /// Gives each source variable without a format the relabels, prefix, suffix and labels of the first
  /// variable of the same column name that has one; then a percent format to the axes of percentages.
  /// Guarded.
  /// @return 0
  int copyVariableFormats();
  /// Drops the category lists of domains whose variables have relabels. Guarded.
  /// @return 0
  int UpdateCategoricalDomains();
  /// Does nothing.
  /// @return 0
  int tweakExpressionVars();

  /// A new style under the chart's style container, whether the id is free or not (`AddStyle` finds or
  /// makes).
  LumoStyle* addStyle(ChartString const& id);

  /// The graph in the chart model, which keeps it; null where it could not be made or found.
  LumoGraph* getGraph() const { return mGraph; }
  /// The chart that the graph is part of; not the graph itself.
  LumoVisualization* getImplementation() { return mVisualization; }

  /// Width to height of one panel cell; makes the facet layout if there is none.
  void setCellAspect(double aspect);

  /// Whether a user source of that id exists, ignoring case.
  bool doesSourceExist(ChartString const& id);
  /// The ids of all user sources, UTF-8, in order.
  std::vector<std::string> getUserSourceNames() const;

  /// Whether the chart has a subtitle, by the chart's extension or by a frame that says so itself.
  bool doesSubTitleExist() const;

  /// The variable whose column name (source variables, first) or id (derived variables, behind them) matches,
  /// ignoring case.
  /// @param occurrence 0 for the first match
  /// @throws ChartException, which is not logged, if there are not so many matches
  XVariable getVariable(ChartString const& name, unsigned int occurrence) const;

 private:
  friend class XDocument;

  LumoCoordinates& findOrMakeCoordinates();
  bool addTitle(kestrel::TitleRecipe const& recipe, char16_t const* text);
  void makeTitleFrame(LumoExtensionVis& extension, kestrel::TitleRecipe const& recipe, char16_t const* text);
  XElement addElement(kestrel::ElementRecipe const& recipe, char16_t const* name);
  LumoAxis& makeAxis(LumoDimension& dimension, char16_t const* id);
  XAxis finishAxis(LumoDimension& dimension, LumoAxis& axis, ChartString const& label);
  void collectPanelVariable(XVariable& variable, ROLE role);
  void registerColumn(std::string const& sourceKey, XVariable const& variable);
  void registerColumn(XSource const& source, XVariable const& variable);

  LumoVisualization* mVisualization;
  VarDataProcessor* mProcessor;
  LumoStyle* mContainerStyle = nullptr;
  LumoGraph* mGraph = nullptr;
  bool mNestRow = false;
  bool mNestColumn = false;
  std::vector<CTVariableType*> mRowPanelVariables;
  std::vector<CTVariableType*> mColumnPanelVariables;
  std::vector<CTVariableType*> mBlendVariables;
  std::vector<XSource*> mSources;

  /// Tells the document that the store which it shares with the graph has been replaced.
  unsigned int mClearCount = 0;
};
