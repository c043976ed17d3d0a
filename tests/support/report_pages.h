#pragma once
// Reading laid-out report pages in tests: the text lines of a page, found by their text.

#include "reports/document.h"

#include <string>
#include <vector>

namespace tallymere::testing {

inline std::vector<const reports::TextItem*> pageTexts(const reports::Page& page) {
    std::vector<const reports::TextItem*> r;
    for (const auto& item : page.items)
        if (const auto* t = std::get_if<reports::TextItem>(&item)) r.push_back(t);
    return r;
}

// The first line on the page with exactly this text, or nullptr.
inline const reports::TextItem* findText(const reports::Page& page, const std::string& text) {
    for (const auto* t : pageTexts(page))
        if (t->text == text) return t;
    return nullptr;
}

// How many lines of the whole document have exactly this text.
inline int countText(const reports::Document& doc, const std::string& text) {
    int n = 0;
    for (const auto& p : doc.pages)
        for (const auto* t : pageTexts(p)) n += t->text == text;
    return n;
}

// The page numbers (from 1) on which the text stands.
inline std::vector<int> pagesWith(const reports::Document& doc, const std::string& text) {
    std::vector<int> r;
    for (std::size_t i = 0; i < doc.pages.size(); ++i)
        if (findText(doc.pages[i], text)) r.push_back(static_cast<int>(i) + 1);
    return r;
}

}  // namespace tallymere::testing
