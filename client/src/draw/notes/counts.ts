/** Numbers within notes: all of them have groups of digits. */
export const counted = (count: number) => count.toLocaleString('en');
