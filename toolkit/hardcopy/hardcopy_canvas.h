// What the file drivers share: a fixed picture size, text measured by an
// average character width, no screen bitmaps, and an end to write.
#pragma once

#include "toolkit/graphics/canvas.h"

class hardcopy_canvas : public canvas {
 public:
  hardcopy_canvas(int w, int h) : width_(w), height_(h) {}

  int width() const override { return width_; }
  int height() const override { return height_; }
  // The printer's fonts average a little over half their height a character.
  float text_width(std::string_view s, const canvas_text_style& style) const override {
    return 0.55f * style.char_height * static_cast<float>(s.size());
  }
  // A screen bitmap has nothing to give to a file: the drawing that made it
  // has come here already.
  std::unique_ptr<canvas> copy_area(int, int, int, int) const override { return nullptr; }
  void put_bitmap(const canvas&, int, int, int) override {}

  // Writes what ends the file.
  virtual void finish() = 0;

 private:
  int width_;
  int height_;
};
