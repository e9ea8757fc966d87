package kestrel.pdl;

import java.util.HashMap;
import java.util.HashSet;
import java.util.Map;
import java.util.Set;
import org.antlr.v4.runtime.ParserRuleContext;

/** Refuses what one block says twice. */
final class Once {
  private final Map<String, Place> said = new HashMap<>();
  private final Set<String> used = new HashSet<>();

  /** `what` names the option, such as "label". */
  void say(String what, ParserRuleContext part) {
    say(what, Place.of(part));
  }

  void say(String what, Place place) {
    Place first = said.putIfAbsent(what, place);
    if (first != null) {
      throw new Refusal(place,
          "found " + Wording.quoted(what) + " twice, expected it once; the first is in line " + first.line()
              + ", column " + first.column());
    }
  }

  /** Refuses an option beside another one; `other` may be null. */
  void sayWithout(String other, String what, ParserRuleContext part) {
    if (other != null && used.contains(other)) {
      throw new Refusal(Place.of(part),
          "found " + Wording.quoted(what) + " beside " + Wording.quoted(other) + ", expected only one of them");
    }
    used.add(what);
  }
}
