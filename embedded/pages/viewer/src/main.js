// The page's script: what is in the page becomes a picture, buttons and a few lines of text. Nothing is asked of a
// network, and names and messages reach the page as text alone.

import {Content} from './content.js';
import {Picture} from './picture.js';

const byId = id => document.getElementById(id);

function say(text) {
  byId('notice').textContent = text;
  byId('notice').hidden = false;
}

function counted(count, one, many) {
  return `${count.toLocaleString('en')} ${count === 1 ? one : many}`;
}

function showFacts(content) {
  byId('facts').textContent = [
    content.file,
    counted(content.triangles, 'triangle', 'triangles'),
    ...(content.messages.length === 0 ? ['no messages'] : []),
  ].filter(Boolean).join(' \u00b7 ');
  const box = byId('messages');
  box.hidden = content.messages.length === 0;
  box.querySelector('summary').textContent = counted(content.messages.length, 'message', 'messages');
  box.querySelector('ol').append(...content.messages.map(message => {
    const item = document.createElement('li');
    item.textContent = message;
    return item;
  }));
}

// One button a view. The one that is pressed is the view that the picture shows, until somebody turns it.
function showViews(views, picture) {
  const buttons = views.filter(view => view.name !== '').map(view => {
    const button = document.createElement('button');
    button.type = 'button';
    button.textContent = view.name;
    button.title = view.name;
    button.addEventListener('click', () => picture.show(view));
    picture.addEventListener('view', () => button.setAttribute('aria-pressed', String(picture.view === view)));
    return button;
  });
  byId('views').append(...buttons);
}

const nextFrame = () => new Promise(resolve => requestAnimationFrame(() => setTimeout(resolve)));

async function start() {
  const content = new Content(byId('content').textContent);
  showFacts(content);
  say('Loading the model');
  await nextFrame();
  const picture = new Picture(byId('picture'), content);
  await picture.load(byId('model').textContent);
  showViews(content.views, picture);
  picture.show(content.views[0]);
  byId('notice').hidden = true;
  if (picture.isEmpty) say('There is nothing to see.');
}

start().catch(error => {
  console.error(error);
  say('The model cannot be shown here: ' + error.message);
});
