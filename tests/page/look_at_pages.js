// Looks at HTML pages in Chromium and prints a JSON object: for each page, by its name, what is wrong with it.
//
// usage: node look_at_pages.js FOLDER-OF-NODE-MODULES < JOB
//
// A page must open from disk without a network, ask for nothing but itself, say nothing on the console, show its title, its
// facts and its buttons as they are, and show the model as the pictures do that the job names. Turning the model must change
// the picture, and the key for that must bring it back.

const fs = require('fs');
const path = require('path');
const {pathToFileURL} = require('url');

const {chromium} = require(path.join(process.argv[2], 'playwright-core'));
const job = JSON.parse(fs.readFileSync(0, 'utf8'));
const [width, height] = job.size;

const OPTIONS = ['--no-sandbox', '--disable-quic', '--no-first-run', '--disable-background-networking',
                 '--disable-component-update', '--disable-sync', '--use-gl=angle', '--use-angle=swiftshader',
                 '--enable-unsafe-swiftshader'];
const MOST_COLOR = 8;      // by how much mean colours of the model may differ: pages have no highlights
const MOST_OTHER = 0.015;  // part of the picture that may look otherwise: the edges

// Runs in the browser: how two PNG pictures of one size differ, pictures in base64.
async function compare([first, second]) {
  const [one, other] = await Promise.all([first, second].map(async text => {
    const bytes = Uint8Array.from(atob(text), letter => letter.charCodeAt(0));
    const image = await createImageBitmap(new Blob([bytes]));
    const canvas = new OffscreenCanvas(image.width, image.height);
    const context = canvas.getContext('2d');
    context.drawImage(image, 0, 0);
    return context.getImageData(0, 0, image.width, image.height);
  }));
  if (one.width !== other.width || one.height !== other.height) {
    return {sizes: `${one.width}x${one.height} and ${other.width}x${other.height}`};
  }
  const ground = other.data.slice(0, 3);
  const isGround = (data, at) => ground.every((value, i) => data[at + i] === value);
  const sums = [[0, 0, 0, 0], [0, 0, 0, 0]];
  let otherCount = 0;
  for (let at = 0; at < one.data.length; at += 4) {
    const distance = Math.max(...[0, 1, 2].map(i => Math.abs(one.data[at + i] - other.data[at + i])));
    if (distance > 24) ++otherCount;
    [one.data, other.data].forEach((data, which) => {
      if (isGround(data, at)) return;
      ++sums[which][3];
      for (let i = 0; i < 3; ++i) sums[which][i] += data[at + i];
    });
  }
  const means = sums.map(([r, g, b, count]) => count === 0 ? [0, 0, 0] : [r / count, g / count, b / count]);
  return {
    otherPart: otherCount * 4 / one.data.length,
    color: Math.max(...[0, 1, 2].map(i => Math.abs(means[0][i] - means[1][i]))),
    parts: sums.map(sum => sum[3] * 4 / one.data.length),
  };
}

class Look {
  constructor(context, comparer, wanted) {
    this.context = context;
    this.comparer = comparer;
    this.wanted = wanted;
    this.problems = [];
  }

  expect(what, found, wanted) {
    if (found !== wanted) this.problems.push(`${what}: wanted ${JSON.stringify(wanted)}, found ${JSON.stringify(found)}`);
  }

  async run() {
    this.page = await this.context.newPage();
    this.page.on('console', message => this.problems.push(`the console says: ${message.text()}`));
    this.page.on('pageerror', error => this.problems.push(`an error: ${error}`));
    const asked = [];
    this.page.on('request', request => asked.push(request.url()));
    const url = pathToFileURL(this.wanted.path).href;
    await this.page.goto(url);
    await this.drawn();
    await this.lookAtTexts();
    await this.lookAtPictures();
    await this.turn();
    for (const other of asked.filter(each => each !== url && !/^(blob|data):/.test(each))) {
      this.problems.push(`it asks for ${other}`);
    }
    await this.page.close();
  }

  // Waits until a view is shown, with the canvas as large as the pictures are.
  async drawn() {
    await this.page.waitForSelector('button[aria-pressed="true"]', {timeout: 20000});
    const space = await this.page.evaluate(() => innerHeight - document.getElementById('picture').clientHeight);
    await this.page.setViewportSize({width, height: height + space});
    await this.settled();
  }

  settled() {
    return this.page.evaluate(() => new Promise(
        resolve => requestAnimationFrame(() => requestAnimationFrame(() => setTimeout(resolve, 50)))));
  }

  async picture() {
    await this.settled();
    return (await this.page.locator('#picture').screenshot()).toString('base64');
  }

  async lookAtTexts() {
    this.expect('the heading', await this.page.locator('h1').textContent(), this.wanted.title);
    this.expect('the title', await this.page.title(), this.wanted.title.trim());
    const facts = await this.page.locator('#facts').textContent();
    this.expect('the facts', facts.slice(0, this.wanted.facts.length), this.wanted.facts);
    const licences = await this.page.locator('#licences').textContent();
    for (const part of ['three.js authors', 'the wrl authors', 'Permission is hereby granted']) {
      this.expect(`"${part}" in the licences`, licences.includes(part), true);
    }
    this.expect('what a name did', await this.page.evaluate(() => window.struck), undefined);
    const notice = await this.page.locator('#notice:visible').allTextContents();
    this.expect('the notice', notice.join(), this.wanted.name === 'nothing' ? 'There is nothing to see.' : '');
  }

  async lookAtPictures() {
    for (const {button, picture} of this.wanted.pictures) {
      const found = this.page.getByRole('button', {name: button, exact: true});
      await found.click();
      this.expect(`whether "${button}" is pressed`, await found.getAttribute('aria-pressed'), 'true');
      if (picture === null) continue;
      const wanted = fs.readFileSync(picture).toString('base64');
      const {sizes, otherPart, color, parts} = await this.comparer.evaluate(compare, [await this.picture(), wanted]);
      if (sizes) {
        this.problems.push(`${button}: the pictures measure ${sizes}`);
      } else if (!(otherPart <= MOST_OTHER && color <= MOST_COLOR)) {
        this.problems.push(`${button}: ${otherPart} of the picture looks otherwise, colours differ by ${color}`);
      } else if (this.wanted.name !== 'nothing' && !(parts[0] > 0.02)) {
        this.problems.push(`${button}: there is next to nothing in the picture`);
      }
    }
  }

  async turn() {
    if (this.wanted.name === 'nothing') return;
    const isSame = async (one, other) => {
      const {otherPart} = await this.comparer.evaluate(compare, [one, other]);
      return otherPart < 1e-4;
    };
    const canvas = this.page.locator('#picture');
    await canvas.press('0');
    const first = await this.picture();
    const {x, y} = await canvas.boundingBox();
    await this.page.mouse.move(x + width / 2, y + height / 2);
    await this.page.mouse.down();
    await this.page.mouse.move(x + width / 2 + 90, y + height / 2 + 40, {steps: 4});
    await this.page.mouse.up();
    this.expect('whether dragging changes nothing', await isSame(first, await this.picture()), false);
    this.expect('the number of pressed buttons', await this.page.locator('button[aria-pressed="true"]').count(), 0);
    await canvas.press('Home');
    this.expect('whether the first view comes back', await isSame(first, await this.picture()), true);
    await canvas.press('ArrowLeft');
    const turned = await this.picture();
    this.expect('whether a key changes nothing', await isSame(first, turned), false);
    await canvas.press('+');
    this.expect('whether coming closer changes nothing', await isSame(turned, await this.picture()), false);
  }
}

(async () => {
  const browser = await chromium.launch({executablePath: job.browser, headless: true, args: OPTIONS});
  const results = {};
  try {
    const comparer = await browser.newPage();
    const context = await browser.newContext({offline: true, reducedMotion: 'reduce', viewport: {width, height: height + 150}});
    for (const wanted of job.pages) {
      const look = new Look(context, comparer, wanted);
      await look.run().catch(error => look.problems.push(String(error)));
      results[wanted.name] = look.problems;
    }
  } finally {
    await browser.close();
  }
  console.log(JSON.stringify(results));
})();
