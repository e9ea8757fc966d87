package kestrel.lumoml14;

import java.util.ArrayList;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.function.UnaryOperator;
import kestrel.converter.ConversionException;
import kestrel.markup.MarkupElement;

/**
 * The rows of an embedded source. Old ones hold numbers, dates and texts; new ones hold numbers alone, so that dates
 * become seconds since 1970 and texts the numbers of categories with a relabel each.
 */
final class EmbeddedRows {
  private static final String MISSING = ".";

  private final OldElement source;
  private final List<String> names;
  private final List<Column> columns = new ArrayList<>();

  EmbeddedRows(OldElement source, List<String> names, Map<String, Variable> variables) {
    this.source = source;
    this.names = names;
    for (String name : names) columns.add(columnOf(variables.get(name)));
  }

  private interface Column {
    /** The number for a value; null where the value is malformed. */
    String number(String value);

    /** What its values have to be. */
    String holds();
  }

  private record Parsed(UnaryOperator<String> parser, String holds) implements Column {
    @Override
    public String number(String value) {
      return parser.apply(value);
    }
  }

  private static final Column NUMBERS = new Parsed(Values::numberText, "numbers");
  private static final Column DATES = new Parsed(Values::seconds, "dates such as 2012-01-31");

  private static Column columnOf(Variable variable) {
    if (variable == null) return NUMBERS;
    return switch (variable.kind()) {
      case DATE -> DATES; case STRING -> hasRelabels(variable.element()) ? NUMBERS:
        new Categories(variable.element());
        default -> NUMBERS;
    };
  }

  private static boolean hasRelabels(MarkupElement variable) {
    MarkupElement format = variable.find("format");
    return format != null && format.find("relabel") != null;
  }

  /** A line for each row, ended by a line feed, with `;` between the numbers. */
  String converted() throws ConversionException {
    StringBuilder rows = new StringBuilder();
    CharSequence text = source.text();
    int line = source.textLine();
    int start = 0;
    for (int at = 0; at <= text.length(); ++at) {
      if (at < text.length() && text.charAt(at) != '\n') continue;
      String row = text.subSequence(start, at).toString().strip();
      if (!row.isEmpty()) add(row, line, rows);
      start = at + 1;
      ++line;
    }
    return rows.toString();
  }

  private void add(String row, int line, StringBuilder rows) throws ConversionException {
    List<String> values = Values.list(row);
    if (values.size() != columns.size()) {
      throw ConversionException.at(
          line, 1, "a row has " + values.size() + " values, and \"columns\" names " + columns.size());
    }
    for (int at = 0; at < values.size(); ++at) {
      if (at > 0) rows.append(';');
      String value = values.get(at).strip();
      if (value.isEmpty() || value.equals(MISSING)) continue;
      String number = columns.get(at).number(value);
      if (number == null) {
        throw ConversionException.at(line, 1,
            "\"" + OldElement.cut(value) + "\" is no value for the column \"" + names.get(at) + "\", which holds "
                + columns.get(at).holds());
      }
      rows.append(number);
    }
    rows.append('\n');
  }

  /** Numbers texts from 1 in the order of their appearance. */
  private static final class Categories implements Column {
    private final MarkupElement variable;
    private final Map<String, String> numbers = new LinkedHashMap<>();

    Categories(MarkupElement variable) {
      this.variable = variable;
    }

    @Override
    public String number(String value) {
      String known = numbers.get(value);
      if (known != null) return known;
      String number = Integer.toString(numbers.size() + 1);
      numbers.put(value, number);
      variable.findOrAdd("format").add("relabel").set("from", number).set("to", value);
      return number;
    }

    @Override
    public String holds() {
      return "texts";
    }
  }
}
