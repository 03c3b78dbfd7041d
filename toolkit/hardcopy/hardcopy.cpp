#include "toolkit/hardcopy/hardcopy.h"

#include <cmath>
#include <memory>

#include "toolkit/core/trim.h"
#include "toolkit/core/werror.h"
#include "toolkit/graphics/graphics_targets.h"
#include "toolkit/hardcopy/hardcopy_stream.h"
#include "toolkit/hardcopy/postscript_canvas.h"
#include "toolkit/hardcopy/wmf_canvas.h"

int ihcdrv = 2;
int ighcpy = 0;
std::array<int, 41> ihcopt{};
float asprath = 1.0f;

namespace {

constexpr int postscript_driver = 2, printer_driver = 10, metafile_driver = 11;

// The page is A4 portrait: PostScript counts points, the metafile 96 units
// an inch. The printer keeps half an inch clear at each edge.
struct page_measures {
  int width, height, margin;
};
page_measures page_of(int driver) {
  if (driver == metafile_driver) return {794, 1123, 0};
  if (driver == printer_driver) return {595, 842, 36};
  return {595, 842, 0};
}

std::unique_ptr<hardcopy_canvas> open_canvas;

bool background_printed() { return ihcopt[5] == 2; }

void open_postscript(const std::string& title, int w, int h) {
  postscript_layout layout;
  layout.width = w;
  layout.height = h;
  layout.page_document = ihcdrv == printer_driver;
  layout.margin = page_of(ihcdrv).margin;
  layout.print_background = background_printed();
  layout.title = title;
  open_canvas = std::make_unique<postscript_canvas>(layout);
}

void close_hardcopy() {
  attach_hardcopy(nullptr);
  open_canvas->finish();
  open_canvas.reset();
  yygrhcclose();
  ighcpy = 0;
}

}  // namespace

void igrhardcopyselect(int item, int driver) {
  if (item != 1) return;
  if (driver != postscript_driver && driver != printer_driver && driver != metafile_driver) {
    yyerror(3, "IGrHardCopySelect");
    return;
  }
  ihcdrv = driver;
}

void igrhardcopyoptions(int option, int value) {
  if (option < 1 || option > 41) {
    yyerror(3, "IGrHardCopyOptions");
    return;
  }
  ihcopt[static_cast<std::size_t>(option - 1)] = value;
}

void igrhardcopy(const std::string& name) {
  if (yytrim(name) == "S") {
    if (ighcpy == 1) close_hardcopy();
    return;
  }
  if (ighcpy == 1) close_hardcopy();
  const page_measures page = page_of(ihcdrv);
  const int w = ihcopt[0] > 0 ? ihcopt[0] : page.width - 2 * page.margin;
  const int h = ihcopt[1] > 0 ? ihcopt[1] : page.height - 2 * page.margin;
  asprath = static_cast<float>(w) / static_cast<float>(h);
  std::string file(yytrim(name));
  if (ihcdrv == printer_driver) {
    yygrhcopen(file.empty() ? "lp -s" : file, file.empty());
    open_postscript("drevplot.prn", w, h);
  } else if (ihcdrv == metafile_driver) {
    yygrhcopen(file.empty() ? "drevplot.wmf" : file);
    open_canvas = std::make_unique<wmf_canvas>(w, h, background_printed());
  } else {
    if (file.empty()) file = "drevplot.ps";
    yygrhcopen(file);
    open_postscript(file, w, h);
  }
  attach_hardcopy(open_canvas.get());
  ighcpy = 1;
}

int infogrhardcopy(int item) {
  const page_measures page = page_of(ihcdrv);
  switch (item) {
    case 32: return static_cast<int>(std::lround(100.0f * asprath));
    case 91: return page.width - 2 * page.margin;
    case 92: return page.height - 2 * page.margin;
    case 101: return page.width;
    case 102: return page.height;
    default: return item >= 1 && item <= 41 ? ihcopt[static_cast<std::size_t>(item - 1)] : 0;
  }
}
