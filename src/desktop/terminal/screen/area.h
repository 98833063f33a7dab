// A part of the terminal's screen.
#pragma once

#include <algorithm>

namespace tidemark {

// In character cells; row and column 0 are the top left ones.
struct Area {
  int row = 0;
  int column = 0;
  int height = 0;
  int width = 0;

  bool Holds(int a_row, int a_column) const {
    return a_row >= row && a_row < row + height && a_column >= column && a_column < column + width;
  }
  // What is left inside a border on all four sides.
  Area Within(int rows, int columns) const {
    return {row + rows, column + columns, std::max(height - 2 * rows, 0),
            std::max(width - 2 * columns, 0)};
  }
};

}  // namespace tidemark
