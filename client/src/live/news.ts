/** What the server says of a chart that it keeps. */
export interface Announcement {
  id: number;
  /** Where it came from, and when, in milliseconds since 1970. */
  from: string;
  received: number;
}

/** What is done about what the server tells. */
export interface Reader {
  /** The connection is there. */
  open(): void;
  /** Charts below this number are no longer kept; where the server has been started anew, none that came before. */
  begin(first: number, isNewServer: boolean): void;
  chart(announcement: Announcement): void;
  gone(id: number): void;
  /** There is no connection, and there was none for a while. */
  lost(): void;
}

/** The server ends each connection once in a while: that is no news. */
const lostAfter = 4000;
/** A browser asks again by itself where a connection is cut, but not where it is refused. */
const askAgainAfter = 5000;

/**
 * Reads the events of the server for as long as the page is to be seen. A page that is not holds no connection:
 * a browser has few for all of its pages together.
 */
export function readNews(reader: Reader): void {
  let source: EventSource | null = null;
  let server: string | null = null;
  let losing = 0;

  const begin = (text: string): void => {
    const { id, first } = JSON.parse(text) as { id: string; first: number };
    reader.begin(first, server !== null && server !== id);
    server = id;
  };

  const listen = (): void => {
    if (document.visibilityState === 'hidden') return;
    const events = new EventSource('events');
    source = events;
    const on = (name: string, take: (data: string) => void): void =>
      events.addEventListener(name, (event) => take((event as MessageEvent<string>).data));
    on('server', begin);
    on('chart', (data) => reader.chart(JSON.parse(data) as Announcement));
    on('gone', (data) => reader.gone(Number(data)));
    events.addEventListener('open', () => {
      window.clearTimeout(losing);
      losing = 0;
      reader.open();
    });
    events.addEventListener('error', () => {
      if (losing === 0) losing = window.setTimeout(() => reader.lost(), lostAfter);
      if (events.readyState !== EventSource.CLOSED) return;
      window.setTimeout(() => {
        if (source === events) listen();
      }, askAgainAfter);
    });
  };

  document.addEventListener('visibilitychange', () => {
    source?.close();
    source = null;
    window.clearTimeout(losing);
    losing = 0;
    listen();
  });
  listen();
}
