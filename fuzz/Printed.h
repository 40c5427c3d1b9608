#pragma once

#include "documents/PrintedText.h"

#include <algorithm>
#include <string_view>

/// The words of an input as the reader program hands them over, with places that follow from the
/// bytes.
inline quorvane::documents::PrintedText PrintedOf(std::string_view bytes) {
  constexpr double kHeight = 8;
  quorvane::documents::PrintedText text;
  text.pages = 2;
  double left = 0;
  double top = 0;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t end = std::min(bytes.find_first_of(" \n", at), bytes.size());
    const auto word = bytes.substr(at, end - at);
    const double right = left + 5 * static_cast<double>(word.size());
    text.words.push_back({at > bytes.size() / 2 ? 1 : 0, left, right, top, top + kHeight,
                          QString::fromUtf8(word.data(), static_cast<qsizetype>(word.size()))});
    const bool line_ends = end < bytes.size() && bytes[end] == '\n';
    left = line_ends ? 0 : right + 5;
    top += line_ends ? kHeight : 0;
    at = end + 1;
  }
  return text;
}
