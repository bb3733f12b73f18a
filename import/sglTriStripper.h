#pragma once

// The face collector: polygons go in, numbered triangles come out in the order in which they arrived.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "import/Messages.h"

/// Cuts polygons into triangles, drops the degenerate ones with a warning, and keeps the rest. It also holds what a
/// strip builder would work on, but builds no strips: the triangles are read as they were collected.
///
/// `Vertex` is a corner with a member `vertex`, its identity; nothing else of it is looked at. One collector serves one
/// shape. Records lie in blocks that belong to the collector, so that a triangle costs no allocation of its own.
template <class Vertex>
class sglTriStripper {
 public:
  /// Neighbours in a ring. A ring begins and ends at a link that is no triangle; an unlinked link is its own neighbour.
  struct Link {
    Link* previous = this;
    Link* next = this;
  };

  /// A collected triangle. It stands in at most one ring.
  struct Triangle : Link {
    std::uint32_t id = 0;              // running number of the accepted triangles
    std::array<Vertex, 3> corners{};   // in the order given
    std::uint32_t neighbourCount = 0;  // for a strip builder
    std::uint32_t freeNeighbours = 0;  // for a strip builder
    std::array<Triangle*, 3> neighbours{};
  };

  /// A ring of triangles, read from the front.
  class TriangleList {
   public:
    class Iterator {
     public:
      explicit Iterator(const Link* at) : m_at(at) {}
      const Triangle& operator*() const { return static_cast<const Triangle&>(*m_at); }
      const Triangle* operator->() const { return static_cast<const Triangle*>(m_at); }
      Iterator& operator++() {
        m_at = m_at->next;
        return *this;
      }
      friend bool operator==(const Iterator&, const Iterator&) = default;

     private:
      const Link* m_at;
    };

    TriangleList() = default;
    TriangleList(const TriangleList&) = delete;  // links point at their ring
    TriangleList& operator=(const TriangleList&) = delete;

    [[nodiscard]] Iterator begin() const { return Iterator(m_sentinel.next); }
    [[nodiscard]] Iterator end() const { return Iterator(&m_sentinel); }
    [[nodiscard]] bool empty() const { return m_sentinel.next == &m_sentinel; }

    /// Puts a triangle that stands in no ring at the end.
    void append(Triangle* triangle) {
      triangle->previous = m_sentinel.previous;
      triangle->next = &m_sentinel;
      m_sentinel.previous->next = triangle;
      m_sentinel.previous = triangle;
    }

   private:
    Link m_sentinel;
  };

  /// A strip: its corners in order.
  using Strip = std::vector<Vertex>;

  sglTriStripper() = default;
  sglTriStripper(const sglTriStripper&) = delete;  // a collector is read where it was filled
  sglTriStripper& operator=(const sglTriStripper&) = delete;

  /// Reports the strip builder's lists that are not empty, and frees everything.
  virtual ~sglTriStripper() {
    reportUnlessEmpty(m_donetrilist, "sglTriStripper logic error: m_donetrilist not empty\n");
    reportUnlessEmpty(m_adjtrilist[0], "sglTriStripper logic error: m_adjtrilist[0] not empty\n");
    reportUnlessEmpty(m_adjtrilist[1], "sglTriStripper logic error: m_adjtrilist[1] not empty\n");
    reportUnlessEmpty(m_adjtrilist[2], "sglTriStripper logic error: m_adjtrilist[2] not empty\n");
    reportUnlessEmpty(m_adjtrilist[3], "sglTriStripper logic error: m_adjtrilist[3] not empty \n");
  }

  /// Adds the triangles of one polygon. They zigzag from side to side, so that each has the polygon's winding and
  /// shares an edge with the one before it. A polygon of fewer than three corners is reported and adds nothing.
  void addPolyFace(std::span<const Vertex> corners) {
    if (corners.size() < 3) {
      importer::warn("sglTriStripper::addPolyFace() warning: ", "ignoring degenerate face", '\n');
      return;
    }
    std::size_t a = 0;
    std::size_t b = 1;
    std::size_t c = corners.size() - 1;
    std::size_t forward = 2;
    std::size_t backward = c - 1;
    for (std::size_t step = 0; step + 2 < corners.size(); ++step) {
      addTriangleFace(newTriangle(corners[a], corners[b], corners[c]));
      if (step % 2 == 0) {
        a = c;
        c = forward++;
      } else {
        b = c;
        c = backward--;
      }
    }
  }

  /// A fresh record with these corners. It belongs to the collector, and counts for nothing until `addTriangleFace`
  /// takes it.
  [[nodiscard]] Triangle* newTriangle(const Vertex& a, const Vertex& b, const Vertex& c) {
    Triangle* triangle = takeRecord();
    triangle->corners = {a, b, c};
    return triangle;
  }

  /// Keeps a triangle under the next number, or, when two of its corners are the same vertex, reports it and gives it
  /// up. Corners of different identity at one position are different. `triangle` comes from this collector's
  /// `newTriangle` and must not be used afterwards.
  void addTriangleFace(Triangle* triangle) {
    const auto& [a, b, c] = triangle->corners;
    if (a.vertex == b.vertex || b.vertex == c.vertex || c.vertex == a.vertex) {
      importer::warn("sglTriStripper::addTriangleFace() warning: ", "ignoring degenerate triangle", '\n');
      giveUp(triangle);
      return;
    }
    m_trilist.append(triangle);
    triangle->neighbourCount = 0;
    triangle->freeNeighbours = 0;
    triangle->neighbours = {};
    triangle->id = m_numTriangles++;
  }

  /// The number of accepted triangles, which is the next one's number.
  [[nodiscard]] std::uint32_t getNumTriangles() const { return m_numTriangles; }

  /// The accepted triangles in the order of their numbers.
  [[nodiscard]] const TriangleList& getTriangles() const { return m_trilist; }

  /// The finished strips. Nothing here builds any; whoever reads the collector serves them all the same.
  [[nodiscard]] const std::vector<Strip>& getStrips() const { return m_strips; }

 protected:
  std::uint32_t m_numTriangles = 0;
  TriangleList m_trilist;
  TriangleList m_donetrilist;                // triangles that stand in strips already
  std::array<TriangleList, 4> m_adjtrilist;  // triangles by their number of free neighbours
  std::vector<Strip> m_strips;
  std::vector<Vertex> m_stripScratch;  // for a strip builder

 private:
  static constexpr std::size_t kFirstBlock = 16;      // records; most shapes are small and need no other block
  static constexpr std::size_t kLargestBlock = 1024;  // a block that fits into the processor's cache is written once

  static void reportUnlessEmpty(const TriangleList& list, const char* text) {
    if (!list.empty()) sglOStream(sglOStream::PRINT_ERROR).getOStream() << text;
  }

  /// An unused record: the one given up last if there is any, else the next of the newest block.
  Triangle* takeRecord() {
    if (m_givenUp != nullptr) return std::exchange(m_givenUp, static_cast<Triangle*>(m_givenUp->next));
    if (m_used == m_newest.size()) addBlock();
    return &m_newest[m_used++];
  }

  void giveUp(Triangle* triangle) { triangle->next = std::exchange(m_givenUp, triangle); }

  void addBlock() {
    const std::size_t size = std::min(2 * m_newest.size(), kLargestBlock);
    m_blocks.push_back(std::make_unique<Triangle[]>(size));
    m_newest = {m_blocks.back().get(), size};
    m_used = 0;
  }

  std::array<Triangle, kFirstBlock> m_firstBlock{};
  std::vector<std::unique_ptr<Triangle[]>> m_blocks;  // all behind the first
  std::span<Triangle> m_newest{m_firstBlock};
  std::size_t m_used = 0;         // records of the newest block
  Triangle* m_givenUp = nullptr;  // first of a chain along `next`
};
