// The index.html page of a gallery: the original and every effect's image
// with its id, preset, look, overload and the materials used.
#ifndef QTZQ_CLI_HTML_INDEX_H
#define QTZQ_CLI_HTML_INDEX_H

#include <string>
#include <vector>

namespace qtzq_cli {

struct IndexLink {
    std::string label;
    std::string file;  // relative to the page
};

struct IndexEntry {
    std::string heading;      // "1020 StyleFilm"
    std::string description;  // "film, image only"
    std::string file;         // the effect's image, relative to the page
    std::string note;         // shown highlighted when not empty
    std::vector<IndexLink> inputs;
};

std::string make_index_html(const std::string& title, const std::string& contact_sheet,
                            const std::vector<IndexEntry>& entries);

// `text` with &, <, >, " and ' escaped for HTML.
std::string html_escape(const std::string& text);

}  // namespace qtzq_cli

#endif  // QTZQ_CLI_HTML_INDEX_H
