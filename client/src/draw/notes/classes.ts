/** Classes that are other ones than the chart asks for. */
import { decimalsOf, numberText } from '../../data/format.js';
import { mostBins, type Bins } from '../../statistics/bins.js';
import { counted } from './counts.js';

const plain = (value: number) => numberText(value, null, 'en-US', decimalsOf(value, 15));

export function binNotes(bins: Bins | null, ofDates: boolean): string[] {
  const most = `more than ${counted(mostBins)} are no picture`;
  if (bins?.tooMany !== undefined)
    return [`There are ${counted(bins.count)} classes, not ${counted(bins.tooMany)}: ${most}.`];
  if (bins?.tooNarrow === undefined) return [];
  const unit = ofDates ? ' seconds' : '';
  return [`Classes are ${plain(bins.width)}${unit} wide, not ${plain(bins.tooNarrow)}: ${most}.`];
}
