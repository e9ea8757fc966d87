/** Conditions of styles, such as `facet1 != "3" && facet2 == "1"`: they choose panels. */
import type { Panel } from './panels.js';

const term = /^\s*facet(\d+)\s*(==|!=)\s*(?:"([^"]*)"|'([^']*)'|(\S+))\s*$/;

function termHolds(text: string, panel: Panel): boolean | null {
  const found = term.exec(text);
  if (!found) return null;
  const facet = panel.facets.get(Number(found[1]));
  const wanted = found[3] ?? found[4] ?? found[5] ?? '';
  const same = facet !== undefined && (String(facet.code) === wanted || facet.text === wanted);
  return (found[2] === '==') === same;
}

/** Whether a condition holds in a panel. One that cannot be read does not hold, and is named in a note. */
export function holds(when: string, panel: Panel, notes: string[]): boolean {
  let any = false;
  for (const alternative of when.split('||')) {
    const results = alternative.split('&&').map((each) => termHolds(each, panel));
    if (results.includes(null)) {
      notes.push(`The condition ${when} of a style is not understood.`);
      return false;
    }
    any ||= results.every((result) => result === true);
  }
  return any;
}
