import { defineConfig } from 'vitest/config';

/** Pages in a real browser; see test/browser/browser.ts for what it needs of the environment. */
export default defineConfig({
  test: {
    include: ['test/browser/**/*.test.ts'],
    testTimeout: 120_000,
    hookTimeout: 180_000,
    fileParallelism: false,
  },
});
