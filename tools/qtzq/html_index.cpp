#include "html_index.h"

namespace qtzq_cli {

std::string html_escape(const std::string& text) {
    std::string out;
    for (const char c : text) {
        switch (c) {
            case '&': out += "&amp;"; break;
            case '<': out += "&lt;"; break;
            case '>': out += "&gt;"; break;
            case '"': out += "&quot;"; break;
            case '\'': out += "&#39;"; break;
            default: out += c;
        }
    }
    return out;
}

std::string make_index_html(const std::string& title, const std::string& contact_sheet,
                            const std::vector<IndexEntry>& entries) {
    std::string html =
        "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>" +
        html_escape(title) +
        "</title>\n<style>\n"
        "body { background: #202024; color: #e8e8e8; font: 14px sans-serif; margin: 24px; }\n"
        "a { color: #9cf; }\n"
        ".grid { display: grid; grid-template-columns: repeat(auto-fill, minmax(280px, 1fr)); "
        "gap: 20px; }\n"
        "figure { margin: 0; background: #2a2a30; padding: 8px; border-radius: 4px; }\n"
        "figure img { width: 100%; display: block; }\n"
        "figcaption { margin-top: 6px; line-height: 1.4; }\n"
        ".note { color: #fa4; }\n.inputs { color: #aaa; font-size: 12px; }\n"
        "</style>\n</head>\n<body>\n<h1>" +
        html_escape(title) + "</h1>\n<p><a href=\"" + html_escape(contact_sheet) +
        "\">Contact sheet</a></p>\n<div class=\"grid\">\n";
    for (const auto& entry : entries) {
        html += "<figure>\n<a href=\"" + html_escape(entry.file) + "\"><img src=\"" +
                html_escape(entry.file) + "\" alt=\"" + html_escape(entry.heading) +
                "\" loading=\"lazy\"></a>\n<figcaption><b>" + html_escape(entry.heading) +
                "</b><br>" + html_escape(entry.description);
        if (!entry.note.empty()) html += "<br><span class=\"note\">" + html_escape(entry.note) + "</span>";
        if (!entry.inputs.empty()) {
            html += "<br><span class=\"inputs\">";
            for (std::size_t i = 0; i < entry.inputs.size(); ++i) {
                const IndexLink& link = entry.inputs[i];
                html += (i ? ", " : "") + std::string("<a href=\"") + html_escape(link.file) +
                        "\">" + html_escape(link.label) + "</a>";
            }
            html += "</span>";
        }
        html += "</figcaption>\n</figure>\n";
    }
    html += "</div>\n</body>\n</html>\n";
    return html;
}

}  // namespace qtzq_cli
