// Makes the page into which a model is put, and writes it as a C++ source: style and script inside, and no more than three
// kinds of marks left, {{title}}, {{content}} and {{model}}.
//
// usage: node build.mjs NODE-MODULES OWN-LICENCE OUT.cpp
//
// NODE-MODULES is what npm ci makes of package-lock.json, in whatever folder. The page's policy names its one script and its
// one style by their digests: nothing else runs in it, and nothing is fetched for it.

import {createHash} from 'node:crypto';
import {readFileSync, writeFileSync} from 'node:fs';
import {createRequire} from 'node:module';
import {dirname, join, resolve} from 'node:path';
import {fileURLToPath} from 'node:url';

const here = dirname(fileURLToPath(import.meta.url));
const [modules, ownLicence, output] = process.argv.slice(2).map(path => resolve(path));
const {buildSync} = createRequire(join(modules, 'x'))(join(modules, 'esbuild'));

function bundled(file, options) {
  const {outputFiles} = buildSync({
    entryPoints: [join(here, file)],
    bundle: true,
    minify: true,
    write: false,
    charset: 'utf8',
    legalComments: 'inline',
    logLevel: 'warning',
    nodePaths: [modules],
    ...options,
  });
  return outputFiles[0].text.trim();
}

const digest = text => `'sha256-${createHash('sha256').update(text).digest('base64')}'`;
const escaped = text => text.replaceAll('&', '&amp;').replaceAll('<', '&lt;').trim();

function filled(template, parts) {
  return template.replace(/\{\{(\w+)\}\}/g, (mark, name) => parts[name] ?? mark);
}

function expect(holds, text) {
  if (!holds) throw new Error(text);
}

const script = bundled('src/main.js', {format: 'iife', target: ['chrome109', 'firefox115', 'safari16']});
const style = bundled('page.css', {});
expect(!/<\/script|<!--/i.test(script), 'the script would end the element that it stands in');
expect(!/<\//.test(style), 'the style would end the element that it stands in');

const page = filled(readFileSync(join(here, 'page.html'), 'utf8'), {
  policy: `default-src 'none'; script-src ${digest(script)}; style-src ${digest(style)}; img-src blob:; connect-src blob:; ` +
      'base-uri \'none\'; form-action \'none\'',
  style,
  script,
  licence: escaped(readFileSync(join(modules, 'three', 'LICENSE'), 'utf8')),
  ownLicence: escaped(readFileSync(ownLicence, 'utf8')),
});
const marks = page.match(/\{\{(title|content|model)\}\}/g).join('');
expect(marks === '{{title}}{{title}}{{title}}{{content}}{{model}}', `the page has other marks than it should: ${marks}`);
const DELIMITER = 'wrl-page';
expect(!page.includes(`)${DELIMITER}"`) && !page.includes('\r'), 'the page cannot stand in a raw string');

writeFileSync(output, `// Made by build.mjs.
#include "embedded/pages/PageTemplate.h"

namespace embedded {

std::string_view pageTemplate() {
  static constexpr char kPage[] = R"${DELIMITER}(${page})${DELIMITER}";
  return {kPage, sizeof kPage - 1};
}

}  // namespace embedded
`);
