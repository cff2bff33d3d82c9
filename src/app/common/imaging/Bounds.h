// SPDX-License-Identifier: MIT
// A rectangle, pooled, and the operations on everything that has one.
//
// The rectangle covers the columns x .. x + w - 1 and the rows y .. y + h - 1. Results that leave
// 32 bits stay at the largest or smallest value instead of wrapping round to the other side.
// The static operations read through getBounds(), write through setBounds(), and give every
// temporary copy back to the pool before they return. Vectors hold Bounded objects only.
#pragma once

#include "Bounded.h"

#include <cstdint>

class Point;
class Vector;

class Bounds : public Bounded {
public:
    // An anchor names a point of a rectangle: a vertical and a horizontal bit, in a direction
    // without a bit, the middle (rounded towards the top left) if the centre bit is set.
    static constexpr int32_t kTop = 1;
    static constexpr int32_t kBottom = 2;
    static constexpr int32_t kLeft = 4;
    static constexpr int32_t kRight = 8;
    static constexpr int32_t kCentre = 16;

    // Indices for get().
    static constexpr int32_t kEdgeLeft = 0;
    static constexpr int32_t kEdgeTop = 1;
    static constexpr int32_t kEdgeRight = 2;
    static constexpr int32_t kEdgeBottom = 3;
    static constexpr int32_t kSizeWidth = 4;
    static constexpr int32_t kSizeHeight = 5;

    /// Deletes the pool's first instance; the others stay allocated until the process ends.
    static void static_dtor();

    Bounds() = default;
    Bounds(int32_t x, int32_t y, int32_t w, int32_t h);

    /// From the pool, or new when it is empty. The caller gives it back with free().
    static Bounds* alloc();
    static Bounds* alloc(int32_t x, int32_t y);
    static Bounds* alloc(int32_t x, int32_t y, int32_t w, int32_t h);
    static Bounds* alloc(Bounds* bounds);
    static Bounds* alloc(Bounded* bounded);

    /// The bounding box of all elements; invalid for an empty vector.
    static Bounds* alloc(Vector* vector);

    /// From inclusive corners.
    static Bounds* allocX2Y2(int32_t x1, int32_t y1, int32_t x2, int32_t y2);

    /// From inclusive edges, rows first.
    static Bounds* alloc2(int32_t top, int32_t bottom, int32_t left, int32_t right);

    /// Frees every element (all of them Bounds) and empties the vector.
    static void free(Vector* vector);

    /// Returns the number of instances in the pool. Prints nothing: the program has no console.
    /// @param sinceLast  true: only how many more than at the last call
    static int32_t printNumRecycled(bool sinceLast);

    Osp::Base::String* toString() override;
    void setBounds(Bounds* bounds) override;
    void getBounds(Bounds* bounds) override;

    /// Gives the instance back to the pool; it must not be used afterwards.
    virtual void free();

    int32_t getTop() const { return y; }

    int32_t getLeft() const { return x; }

    int32_t getBottom() const;
    int32_t getRight() const;

    /// Move one edge; the opposite one stays where it is.
    void setTop(int32_t top);
    void setLeft(int32_t left);
    void setBottom(int32_t bottom);
    void setRight(int32_t right);

    /// Turns w and h into the inclusive right and bottom edges, and back.
    static void x2y2(Bounds* bounds);
    static void wh(Bounds* bounds);

    /// One edge or size, by the kEdge and kSize indices; 0 for any other index.
    static int32_t get(Bounded* bounded, int32_t edge);
    static int32_t getWidth(Bounded* bounded);
    static int32_t getHeight(Bounded* bounded);
    static int32_t getArea(Bounded* bounded);
    static int32_t getArea(Vector* vector);

    /// True if it has at least one pixel: w > 0 and h > 0.
    static bool isValid(Bounded* bounded);

    /// Sets w and h to 0.
    static void makeInvalid(Bounded* bounded);

    static void set(Bounded* bounded, int32_t x, int32_t y, int32_t w, int32_t h);
    static void set(Bounded* bounded, Bounded* source);
    static void setPos(Bounded* bounded, int32_t x, int32_t y);
    static void setX(Bounded* bounded, int32_t x);
    static void setY(Bounded* bounded, int32_t y);
    static void setSize(Bounded* bounded, int32_t w, int32_t h);
    static void setWidth(Bounded* bounded, int32_t w);
    static void setHeight(Bounded* bounded, int32_t h);

    /// Inclusive edges.
    static void
    setEdges(Bounded* bounded, int32_t left, int32_t top, int32_t right, int32_t bottom);

    /// Sets the edges that the anchor names: kLeft and kRight to x, kTop and kBottom to y. Edges
    /// that it does not name stay where they are; the centre bit names none. So kRight | kBottom
    /// stretches the rectangle to a new bottom right corner, and both horizontal bits make it one
    /// column wide.
    static void setEdges(Bounded* bounded, int32_t anchor, int32_t x, int32_t y);

    /// The same, to the reference's anchor point plus (dx, dy).
    static void setEdges(Bounded* bounded,
                         int32_t anchor,
                         Bounded* reference,
                         int32_t referenceAnchor,
                         int32_t dx,
                         int32_t dy);

    /// Shifts the edges that the anchor names by dx (left, right) and dy (top, bottom); the others
    /// stay. So kTop | kBottom moves the rectangle vertically.
    static void moveEdges(Bounded* bounded, int32_t anchor, int32_t dx, int32_t dy);

    /// Places the rectangle so that its anchor point lies at (x, y). In a direction without a bit
    /// the position does not change.
    static void setPos(Bounded* bounded, int32_t anchor, int32_t x, int32_t y);

    /// The same, at the reference's anchor point plus (dx, dy).
    static void setPos(Bounded* bounded,
                       int32_t anchor,
                       Bounded* reference,
                       int32_t referenceAnchor,
                       int32_t dx,
                       int32_t dy);

    static void move(Bounded* bounded, int32_t dx, int32_t dy);
    static void move(Vector* vector, int32_t dx, int32_t dy);

    static bool contains(Bounded* bounded, int32_t x, int32_t y);

    /// True if any element contains the point.
    static bool contains(Vector* vector, int32_t x, int32_t y);

    /// True if inner lies wholly inside outer.
    static bool contains(Bounded* outer, Bounded* inner);

    /// True if they share at least one pixel.
    static bool intersects(Bounded* a, Bounded* b);

    /// Cuts a to the part that it shares with b. If they share no pixel, a becomes invalid (see
    /// isValid()).
    static void intersect(Bounded* a, Bounded* b);

    /// Cuts a to one pixel; invalid if that lies outside.
    static void intersect(Bounded* a, int32_t x, int32_t y);

    /// Appends to cut pooled copies of the elements, cut to clip; those without a pixel are left
    /// out. source does not change.
    static void intersect(Vector* source, Bounded* clip, Vector* cut);

    /// Widens a to the bounding box of both; an invalid a becomes a copy of b.
    static void union_(Bounded* a, Bounded* b);
    static void union_(Bounded* a, Vector* vector);

    /// @param array  a counted array; null elements are skipped
    static void union_(Bounded* a, Bounded** array);

    using Bounded::equals;

    /// True if all four fields are equal.
    static bool equals(Bounded* a, Bounded* b);

    static void getPoint(Point* point, Bounded* bounded, int32_t anchor);

    /// Of the nine anchors (corners, middles of the edges, centre) the one nearest to (x, y); of
    /// equally near ones the first, row by row from the top left.
    static int32_t getClosestAnchor(Bounded* bounded, int32_t x, int32_t y);

    /// Distance between two anchor points.
    static double getDistance(Bounded* a, int32_t anchorA, Bounded* b, int32_t anchorB);

    /// The element nearest to bounded in one direction (kTop, kBottom, kLeft or kRight), as a focus
    /// would move; null if there is none. Nearest is the shortest distance from the middle of the
    /// edge on that side to the middle of the element's facing edge, of equally near ones the
    /// first. An element counts if it lies wholly beyond that edge. bounded itself never counts.
    /// @param aligned  only elements that share a row (left, right) or a column (top, bottom)
    /// @param touching  elements that overlap bounded count too, if their centre lies beyond its
    /// centre
    /// @param wrap  if none counts, the search starts again from the other side: the element with
    /// the longest distance in the opposite direction
    static Bounded* getClosestNeighbour(Bounded* bounded,
                                        Vector* vector,
                                        int32_t direction,
                                        bool aligned,
                                        bool touching,
                                        bool wrap);

    /// Appends pooled copies of all elements.
    static void copyInto(Vector* source, Vector* target);

    /// Appends to out pooled rectangles that together cover exactly a without b shifted by
    /// (dx, dy), never twice: bands above and below, then the parts to the left and right.
    static void substract(Bounded* a, Bounded* b, int32_t dx, int32_t dy, Vector* out);
    static void substract(Bounded* a, Bounded* b, Vector* out);

    /// Takes b away from each element.
    static void substract(Vector* a, Bounded* b, int32_t dx, int32_t dy, Vector* out);
    static void substract(Vector* a, Bounded* b, Vector* out);

    /// Takes every element of b away, one after the other.
    static void substract(Bounded* a, Vector* b, int32_t dx, int32_t dy, Vector* out);
    static void substract(Bounded* a, Vector* b, Vector* out);
    static void substract(Vector* a, Vector* b, int32_t dx, int32_t dy, Vector* out);
    static void substract(Vector* a, Vector* b, Vector* out);

    /// Replaces the (pooled) elements of b by their parts that no element of a covers.
    static void removeOverlapping(Vector* a, Vector* b);

    /// Appends to target the parts of the added elements that target does not cover yet. If
    /// target's rectangles did not overlap before, they do not overlap after it.
    /// @param scratch  a working list, empty before and after; owned by the caller
    static void addAndRemoveOverlapping(Vector* target, Vector* added, Vector* scratch);

    int32_t x = 0;  // px, left column
    int32_t y = 0;  // px, top row
    int32_t w = 0;  // px
    int32_t h = 0;  // px

private:
    static Bounds* firstRecycled;
    static int32_t lastCount;  // of printNumRecycled

    Bounds* nextRecycled = nullptr;
};
