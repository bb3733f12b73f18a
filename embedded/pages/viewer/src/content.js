// What the page's writer says of the model, as the script uses it.

import {Vector3} from 'three';

// A view: `axes` are those of the eye, to the right, upwards and backwards. Where `eye` is null the eye stands as near as
// it can and still sees all of the model. `fov` is across the smaller side of the picture, in radians.
function viewOf(view) {
  const [right, up, back] = [0, 3, 6].map(first => new Vector3(...view.axes.slice(first, first + 3)));
  return {name: view.name, axes: {right, up, back}, eye: view.eye ? new Vector3(...view.eye) : null,
          isParallel: view.parallel, fov: view.fov};
}

export class Content {
  constructor(text) {
    const {file, triangles, messages, background, views} = JSON.parse(text);
    Object.assign(this, {file, triangles, messages, background});
    this.views = views.map(viewOf);
  }
}
