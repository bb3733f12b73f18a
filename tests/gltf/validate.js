// Validates .glb files with the Khronos Group's validator and prints a JSON object: for each file its errors and its
// number of triangles.
//
// usage: node validate.js FOLDER-OF-NODE-MODULES FILE...

const fs = require('fs');
const path = require('path');

const [modules, ...files] = process.argv.slice(2);
const validator = require(path.join(modules, 'gltf-validator'));

async function validate(file) {
  const report = await validator.validateBytes(new Uint8Array(fs.readFileSync(file)), {maxIssues: 1000});
  const errors = report.issues.messages.filter(message => message.severity === 0);
  return {errors: errors.map(error => `${error.code} at ${error.pointer}: ${error.message}`),
          triangles: report.info ? report.info.totalTriangleCount : 0};
}

(async () => {
  const results = {};
  for (const file of files) {
    try {
      results[file] = await validate(file);
    } catch (error) {
      results[file] = {errors: [String(error)], triangles: 0};
    }
  }
  console.log(JSON.stringify(results));
})();
