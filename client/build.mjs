// Builds what is shipped: node build.mjs [FOLDER]
//   page.html   the self-contained page, with {{title}} and {{capture}} where they are to be put
//   live.html, live.js, client.css   what kestrel serve serves
//   render.mjs  what kestrel render runs under Node
import { createHash } from 'node:crypto';
import { mkdirSync, readFileSync, writeFileSync } from 'node:fs';
import { join, resolve } from 'node:path';
import { build, transformWithEsbuild } from 'vite';

const root = import.meta.dirname ?? new URL('.', import.meta.url).pathname;
const out = resolve(process.argv[2] ?? join(root, 'dist'));

const source = (name) => join(root, 'src', name);
const hash = (text) => `'sha256-${createHash('sha256').update(text, 'utf8').digest('base64')}'`;

/** One script out of an entry and all that it needs. */
async function bundle(entry, format, ssr) {
  const result = await build({
    root,
    configFile: false,
    logLevel: 'warn',
    define: { 'process.env.NODE_ENV': '"production"' },
    ...(ssr ? { ssr: { noExternal: true, target: 'node' } } : {}),
    build: {
      write: false,
      target: ssr ? 'node18' : 'es2022',
      minify: 'esbuild',
      modulePreload: false,
      reportCompressedSize: false,
      ...(ssr ? { ssr: source(entry) } : {}),
      rollupOptions: {
        input: source(entry),
        output: { format, inlineDynamicImports: true },
      },
    },
  });
  return result.output[0].code;
}

/** Puts texts in places without a second look at what they hold. */
function fill(template, values) {
  return template.replace(/\{\{(\w+)\}\}/g, (whole, name) => values[name] ?? whole);
}

async function page(style) {
  // Nothing may end the script but its end.
  const script = (await bundle('page/main.ts', 'iife', false)).replace(
    /<\/script|<!--/gi,
    (text) => `\\x3c${text.slice(1)}`,
  );
  const policy = [
    "default-src 'none'",
    `script-src ${hash(script)}`,
    `style-src ${hash(style)}`,
    'img-src data:',
    "base-uri 'none'",
    "form-action 'none'",
  ].join('; ');
  return fill(readFileSync(source('page/page.html'), 'utf8'), { policy, style, script });
}

mkdirSync(out, { recursive: true });
const { code } = await transformWithEsbuild(readFileSync(source('page/style.css'), 'utf8'), 'style.css', {
  loader: 'css',
  minify: true,
});
const style = code.trim();
const files = {
  'page.html': await page(style),
  'live.html': readFileSync(source('live/live.html'), 'utf8'),
  'live.js': await bundle('live/main.ts', 'es', false),
  'client.css': style,
  'render.mjs': await bundle('node/main.ts', 'es', true),
};
for (const [name, text] of Object.entries(files)) {
  writeFileSync(join(out, name), text);
  console.log(`${name}: ${Buffer.byteLength(text).toLocaleString('en')} bytes`);
}
