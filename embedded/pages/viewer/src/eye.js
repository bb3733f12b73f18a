// Where the eye stands for a view, as the pictures of the command have it: the smaller side of the picture has the field of
// view, and a small margin stays around the model.

import {Vector3} from 'three';

const MARGIN = 1.06;

// What a picture covers across and upwards for one unit across its smaller side.
export function sidesOf(aspect) {
  return [Math.max(aspect, 1), Math.max(1 / aspect, 1)];
}

function cornersOf(box) {
  const corners = [];
  for (let i = 0; i < 8; ++i) {
    corners.push(new Vector3(i & 1 ? box.max.x : box.min.x, i & 2 ? box.max.y : box.min.y, i & 4 ? box.max.z : box.min.z));
  }
  return corners;
}

// The corners of a box along the axes of an eye.
function alongAxes(axes, box) {
  return cornersOf(box).map(corner => [axes.right.dot(corner), axes.up.dot(corner), axes.back.dot(corner)]);
}

const least = values => Math.min(...values);
const most = values => Math.max(...values);
const middle = values => (least(values) + most(values)) / 2;

function pointAt(axes, [x, y, z]) {
  return new Vector3().addScaledVector(axes.right, x).addScaledVector(axes.up, y).addScaledVector(axes.back, z);
}

// Where the eye has to be along one of its axes to see as much of the points on one side as on the other, when its place
// along the backward axis is given. The slopes to the points fall as the eye moves on.
function centreOf(axis, points, distance) {
  let low = least(points.map(point => point[axis]));
  let high = most(points.map(point => point[axis]));
  for (let step = 0; step < 60; ++step) {
    const place = (low + high) / 2;
    const slopes = points.map(point => (point[axis] - place) / (distance - point[2]));
    if (least(slopes) + most(slopes) > 0) low = place;
    else high = place;
  }
  return (low + high) / 2;
}

// The nearest place with these axes from which all of a box is seen. Each side of what the eye sees is a plane of a fixed
// slope; where those that touch the box cross is as near as the eye may come.
function nearestEye(axes, fov, box, aspect) {
  const slopes = sidesOf(aspect).map(side => side * Math.tan(fov / 2) / MARGIN);
  const points = alongAxes(axes, box);
  const reach = axis => (most(points.map(point => point[axis] + point[2] * slopes[axis])) -
                         least(points.map(point => point[axis] - point[2] * slopes[axis]))) / (2 * slopes[axis]);
  const inFront = most(points.map(point => point[2])) + box.min.distanceTo(box.max) * 5e-3;
  const distance = Math.max(reach(0), reach(1), inFront);
  return pointAt(axes, [centreOf(0, points, distance), centreOf(1, points, distance), distance]);
}

// The place of a parallel view's eye, and what the smaller side of its picture covers.
function parallelEye(axes, box, aspect) {
  const points = alongAxes(axes, box);
  const [x, y, z] = [0, 1, 2].map(axis => points.map(point => point[axis]));
  const sides = sidesOf(aspect);
  const span = Math.max((most(x) - least(x)) / sides[0], (most(y) - least(y)) / sides[1]) || 1;
  return {eye: pointAt(axes, [middle(x), middle(y), most(z) + 1]), span: span * MARGIN};
}

// Where the eye stands for a view of a box, and the span of a parallel one.
export function eyeOf(view, box, aspect) {
  if (view.isParallel) return parallelEye(view.axes, box, aspect);
  return {eye: view.eye ? view.eye.clone() : nearestEye(view.axes, view.fov, box, aspect), span: 0};
}
