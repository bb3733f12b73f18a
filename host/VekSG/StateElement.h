#pragma once

// One numbered state of a drawable: its statelets and its texture coordinates.

#include <VekSG/sglStatelet.h>
#include <VekSG/sglTexCoords.h>

#include <utility>
#include <vector>

class VEK_API StateElement {
 public:
  StateElement(sglStateletList statelets, std::vector<sglTexCoords> texCoords)
      : m_statelets(std::move(statelets)), m_texCoords(std::move(texCoords)) {}

  // In the order in which they were given.
  [[nodiscard]] const sglStateletList& getStatelets() const { return m_statelets; }

  // One entry a texture unit; empty when the drawable has no texture coordinates.
  [[nodiscard]] const std::vector<sglTexCoords>& getTexCoordList() const { return m_texCoords; }

 private:
  sglStateletList m_statelets;
  std::vector<sglTexCoords> m_texCoords;
};
