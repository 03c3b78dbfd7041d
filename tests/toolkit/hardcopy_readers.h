// Scratch folders and the real readers the hardcopy tests check files with:
// ghostscript renders PostScript to a raw pixmap, libwmf's wmf2svg converts
// a metafile.
#pragma once

#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

// A folder of its own for this process, removed at the end.
struct scratch_folder {
  std::filesystem::path path =
      std::filesystem::temp_directory_path() / ("quelmora-hardcopy-" + std::to_string(::getpid()));
  scratch_folder() { std::filesystem::create_directories(path); }
  ~scratch_folder() { std::filesystem::remove_all(path); }
  std::string file(const std::string& name) const { return (path / name).string(); }
};

inline std::string file_text(const std::string& name) {
  std::ifstream in(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// A fake "lp" in the scratch folder, put first on the search path for as
// long as this lives, so that nothing reaches a real printer.
struct fake_print_command {
  std::string old_path = std::getenv("PATH");
  fake_print_command(const scratch_folder& scratch, const std::string& script) {
    std::ofstream(scratch.file("lp")) << "#!/bin/sh\n" << script << "\n";
    std::filesystem::permissions(scratch.file("lp"), std::filesystem::perms::owner_all);
    setenv("PATH", (scratch.path.string() + ":" + old_path).c_str(), 1);
  }
  ~fake_print_command() { setenv("PATH", old_path.c_str(), 1); }
};

// A picture rendered at one pixel a point, top row first.
struct rendered_page {
  int width = 0, height = 0;
  std::vector<unsigned char> rgb;
  std::array<int, 3> at(int x, int y) const {
    const auto i = static_cast<std::size_t>((y * width + x) * 3);
    return {rgb[i], rgb[i + 1], rgb[i + 2]};
  }
};

// Renders with ghostscript (the bounding box's area for an encapsulated
// file, the page otherwise); an empty page when ghostscript rejects the file.
inline rendered_page render_postscript(const std::string& ps, bool eps = true) {
  const std::string ppm = ps + ".ppm";
  const std::string command = "gs -q -dSAFER -dBATCH -dNOPAUSE -sDEVICE=ppmraw -r72 " +
                              std::string(eps ? "-dEPSCrop " : "") + "-sOutputFile='" + ppm + "' '" + ps +
                              "' > '" + ps + ".log' 2>&1";
  rendered_page page;
  if (std::system(command.c_str()) != 0) return page;
  std::ifstream in(ppm, std::ios::binary);
  // The header's numbers, past the comment lines ghostscript puts in it.
  std::array<int, 3> numbers{};
  std::string token;
  in >> token;
  for (int& n : numbers) {
    while (in >> token && token[0] == '#') std::getline(in, token);
    n = std::atoi(token.c_str());
  }
  in.get();
  page.width = numbers[0];
  page.height = numbers[1];
  page.rgb.resize(static_cast<std::size_t>(page.width * page.height * 3));
  in.read(reinterpret_cast<char*>(page.rgb.data()), static_cast<std::streamsize>(page.rgb.size()));
  return page;
}

// The SVG wmf2svg makes of a metafile; empty when it rejects it.
inline std::string metafile_as_svg(const std::string& wmf) {
  const std::string svg = wmf + ".svg";
  const std::string command = "wmf2svg -o '" + svg + "' '" + wmf + "' > /dev/null 2>&1";
  return std::system(command.c_str()) == 0 ? file_text(svg) : std::string{};
}
