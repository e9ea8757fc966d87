/** The quantiles of Student's t distribution. */

/** The logarithm of the gamma function (Lanczos). */
function logGamma(value: number): number {
  const coefficients = [
    676.5203681218851, -1259.1392167224028, 771.3234287776531, -176.6150291621406, 12.507343278686905,
    -0.13857109526572012, 9.984369578019572e-6, 1.5056327351493116e-7,
  ];
  const shifted = value - 1;
  let total = 0.9999999999998099;
  coefficients.forEach((coefficient, at) => (total += coefficient / (shifted + at + 1)));
  const base = shifted + coefficients.length - 0.5;
  return 0.5 * Math.log(2 * Math.PI) + (shifted + 0.5) * Math.log(base) - base + Math.log(total);
}

/** The continued fraction of the incomplete beta function. */
function betaFraction(x: number, a: number, b: number): number {
  const tiny = 1e-300;
  const safe = (value: number) => (Math.abs(value) < tiny ? tiny : value);
  let c = 1;
  let d = 1 / safe(1 - ((a + b) * x) / (a + 1));
  let result = d;
  for (let step = 1; step <= 300; step += 1) {
    const even = (step * (b - step) * x) / ((a + 2 * step - 1) * (a + 2 * step));
    d = 1 / safe(1 + even * d);
    c = safe(1 + even / c);
    result *= d * c;
    const odd = (-(a + step) * (a + b + step) * x) / ((a + 2 * step) * (a + 2 * step + 1));
    d = 1 / safe(1 + odd * d);
    c = safe(1 + odd / c);
    result *= d * c;
    if (Math.abs(d * c - 1) < 1e-14) break;
  }
  return result;
}

function incompleteBeta(x: number, a: number, b: number): number {
  if (x <= 0) return 0;
  if (x >= 1) return 1;
  const front = Math.exp(logGamma(a + b) - logGamma(a) - logGamma(b) + a * Math.log(x) + b * Math.log(1 - x));
  return x < (a + 1) / (a + b + 2)
    ? (front * betaFraction(x, a, b)) / a
    : 1 - (front * betaFraction(1 - x, b, a)) / b;
}

/** The probability of a value of at most `t` with `freedom` degrees of freedom. */
export function studentProbability(t: number, freedom: number): number {
  const tail = incompleteBeta(freedom / (freedom + t * t), freedom / 2, 0.5) / 2;
  return t > 0 ? 1 - tail : tail;
}

/** The value that is not exceeded with `probability`, which is above 0.5. */
export function studentQuantile(probability: number, freedom: number): number {
  let low = 0;
  let high = 2;
  while (studentProbability(high, freedom) < probability && high < 1e12) high *= 2;
  for (let step = 0; step < 200 && high - low > 1e-12 * high; step += 1) {
    const middle = (low + high) / 2;
    if (studentProbability(middle, freedom) < probability) low = middle;
    else high = middle;
  }
  return (low + high) / 2;
}
