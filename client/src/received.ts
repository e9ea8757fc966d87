/**
 * What a client has after it has read one send: the chart's texts and its data, ready to be drawn.
 * The wire side fills it, the drawing side reads it; neither knows more of the other than this file.
 */

/** A column of a data source. Every column on the wire is numbers; texts are for sources made elsewhere. */
export interface Column {
  /** Its name within the source: `sourceName` of a `sourceVariable`. */
  id: string;
  kind: 'number' | 'text';
  /** The cells of a column of kind `number`; NaN is a missing value. */
  numbers?: Float64Array;
  /** The cells of a column of kind `text`; null is a missing value. */
  texts?: (string | null)[];
}

/** The rows of one data source. All its columns have `rows` cells. */
export interface Table {
  /** The id of the `userSource`. */
  source: string;
  rows: number;
  /** By the column's name, in the order in which they were sent. */
  columns: Map<string, Column>;
}

/** One content of a send, in the order of arrival. */
export interface Content {
  /** Its type as the protocol numbers it, and the subtype: 0 in interactive messages. */
  type: number;
  subtype: number;
  /** The protocol's name of the type, or `type N` where it has none. */
  name: string;
  /** How many bytes it took on the wire. */
  sentBytes: number;
  /**
   * The bytes, decompressed where the type is a compressed one. Empty for announcements, and for data,
   * whose rows are in the tables.
   */
  bytes: Uint8Array;
  /** The bytes as text where the type is one of text, else null. */
  text: string | null;
  /** Whether it came as it was announced, and could be read. */
  whole: boolean;
}

/** One message as it came, for whoever wants to see the traffic. */
export interface MessageNote {
  /** Its number within the capture, from 1. */
  number: number;
  /** Where it begins in the capture, in bytes. */
  offset: number;
  /** 307 or 318; anything else was skipped. */
  id: number;
  type: number;
  subtype: number;
  name: string;
  /** Bytes of payload, and of the whole message. */
  chunk: number;
  length: number;
}

/** The end record: who may edit the chart, and with what. */
export interface Done {
  editable: number;
  editor: number;
}

/** One send. A damaged one has what could be read, and says in `problems` what could not. */
export interface Received {
  /** What the chart shows, in the language of the document; empty where it was not sent. */
  description: string;
  englishDescription: string;
  /** The chart's markup; null where there was none, or it was lost. */
  chartText: string | null;
  /** By the id of the source, in the order in which they were sent. */
  tables: Map<string, Table>;
  contents: Content[];
  messages: MessageNote[];
  /** Null where the send has no end record. */
  done: Done | null;
  /** What was wrong, where, and what was made of it; one sentence each. */
  problems: string[];
}
