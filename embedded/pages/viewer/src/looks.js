// Materials and lamps as the pictures of the command have them: colours are computed with as they are displayed, the way
// worlds are made to be seen, and the lamps stand at the eye.

import {BufferAttribute, Color, DirectionalLight, MeshLambertMaterial, NoColorSpace} from 'three';
import {toCreasedNormals} from 'three/addons/utils/BufferGeometryUtils.js';

// Towards the lamp in the eye's coordinates, and how strong it is.
const LAMPS = [
  {towards: [-0.35, 0.5, 1], strength: 0.87},
  {towards: [0.8, -0.3, 0.5], strength: 0.32},
];
const AMBIENT = 0.06;  // comes back from every surface, whatever its colour

// The lamps, to be hung on a camera.
export function lamps() {
  return LAMPS.map(({towards, strength}) => {
    // Of the light that reaches a surface, 1/pi goes to the eye.
    const lamp = new DirectionalLight(0xffffff, strength * Math.PI);
    lamp.position.set(...towards);
    lamp.add(lamp.target);
    lamp.target.position.set(...towards.map(value => -value));
    return lamp;
  });
}

// Where a model has no normals, its surface turns smoothly across edges of less than this. A mesh of more triangles than
// anybody waits for shows each of them flat.
const CREASE = Math.PI / 6;
const MOST_CREASED = 200_000;

function displayedMaterial(material) {
  if (material.map) material.map.colorSpace = NoColorSpace;
  const {map, side, transparent, opacity, alphaTest, depthWrite, vertexColors} = material;
  const displayed = new MeshLambertMaterial({map, side, transparent, opacity, alphaTest, depthWrite, vertexColors});
  displayed.color.copyLinearToSRGB(material.color);
  displayed.emissive.setScalar(AMBIENT);
  displayed.emissiveMap = map;
  return displayed;
}

function displayedColors(colors) {
  const size = colors.itemSize;
  const values = new Float32Array(colors.count * size);
  const color = new Color();
  for (let i = 0; i < colors.count; ++i) {
    color.setRGB(colors.getX(i), colors.getY(i), colors.getZ(i)).convertLinearToSRGB();
    color.toArray(values, i * size);
    if (size === 4) values[i * size + 3] = colors.getW(i);
  }
  return new BufferAttribute(values, size);
}

function displayedGeometry(geometry) {
  const colors = geometry.getAttribute('color');
  if (colors) geometry.setAttribute('color', displayedColors(colors));
  if (geometry.getAttribute('normal')) return geometry;
  return geometry.index.count <= 3 * MOST_CREASED ? toCreasedNormals(geometry, CREASE) : geometry;
}

// What `make` makes of a thing, made once.
function once(make) {
  const made = new Map();
  return thing => {
    if (!made.has(thing)) made.set(thing, make(thing));
    return made.get(thing);
  };
}

// Gives everything below `root`, as the model's reader made it, its displayed colours, and normals where it has none.
export function displayLooks(root) {
  const materialOf = {false: once(displayedMaterial), true: once(displayedMaterial)};
  const geometryOf = once(displayedGeometry);
  root.traverse(node => {
    if (!node.isMesh) return;
    node.geometry = geometryOf(node.geometry);
    const isFlat = !node.geometry.getAttribute('normal');
    node.material = materialOf[isFlat](node.material);
    node.material.flatShading = isFlat;
  });
}
