package kestrel.adapter;

/** A request is not converted. The message is for the user; the kind is for programs. */
final class Refusal extends Exception {
  private static final long serialVersionUID = 1L;

  /** What was wrong, as the word that begins an error code. */
  enum Kind {
    /** The request is not well formed, too large, or no request. */
    RequestInvalid,
    /** There is no template of that name where the request says that it is. */
    TemplateNotFound,
    /** The name of the template, or its folder, leads out of where templates are. */
    NameRefused,
    /** The request says that the template comes with it, and it does not. */
    TemplateMissing,
    /** The template is no XML text. */
    TemplateNotWellFormed,
    /** The template is XML, but breaks a rule of templates. */
    TemplateInvalid,
    /** The template says that it needs a later version. */
    TemplateTooNew,
    /** The request fills a slot that the template does not have. */
    SlotUnknown,
    /** The request fills a slot several times that takes one thing. */
    SlotFilledTwice,
    /** A required slot is filled with nothing. */
    SlotEmpty,
    /** The slot takes something else: a text for a variable, and so on. */
    SlotKind,
    /** The slot takes variables, but not of this kind. */
    VariableKind,
    /** The slot takes variables, but no multiple response sets. */
    SetRefused,
    /** The statistic or number is none that the slot takes. */
    ValueUnknown,
    /** The template shows a map, and the request has none. */
    MapMissing,
    /** The style sheet is not there. */
    StyleSheetNotFound,
    /** The style sheet is there, but is none. */
    StyleSheetInvalid
  }

  private final Kind kind;

  Refusal(Kind kind, String message) {
    super(message);
    this.kind = kind;
  }

  Kind kind() {
    return kind;
  }

  /** The error code of a reply: the kind, a colon and the message. */
  String code() {
    return kind + ": " + getMessage();
  }
}
