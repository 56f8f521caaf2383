#include "test_header_model.h"

#include <cctype>
#include <functional>

namespace mirel_test {

namespace {

// Reads the siblings up to a closing bracket or the end.
void Parse(std::string const& s, std::size_t& at, CTestHeaderItem* parent,
           std::vector<std::unique_ptr<CTestHeaderItem>>& into, int& next) {
    while (at < s.size() && s[at] != ')') {
        if (std::isspace(static_cast<unsigned char>(s[at]))) {
            ++at;
            continue;
        }
        auto item = std::make_unique<CTestHeaderItem>();
        item->parent = parent;
        item->modelIndex = next++;
        while (at < s.size() && (std::isalnum(static_cast<unsigned char>(s[at])) || s[at] == '_'))
            item->text += s[at++];
        if (at < s.size() && s[at] == '-') {
            item->expandState = mirelfrw7::HeaderItemCollapsed;
            ++at;
        }
        if (at < s.size() && s[at] == ':') {
            std::size_t used = 0;
            item->width = std::stoi(s.substr(++at), &used);
            at += used;
        }
        if (at < s.size() && s[at] == '(') {
            Parse(s, ++at, item.get(), item->children, next);
            ++at;
        }
        into.push_back(std::move(item));
    }
}

} // namespace

CTestHeaderModel::CTestHeaderModel(std::string const& tree) {
    std::size_t at = 0;
    int next = 0;
    Parse(tree, at, nullptr, top, next);
}

CTestHeaderItem* CTestHeaderModel::Find(std::string const& text) const {
    std::function<CTestHeaderItem*(std::vector<std::unique_ptr<CTestHeaderItem>> const&)> search =
        [&](auto const& items) -> CTestHeaderItem* {
        for (auto const& item : items) {
            if (item->text == text) return item.get();
            if (CTestHeaderItem* found = search(item->children)) return found;
        }
        return nullptr;
    };
    return search(top);
}

void CTestHeaderModel::Move(CTestHeaderItem* item, int from, int to) {
    auto& siblings = item->parent ? item->parent->children : top;
    auto moved = std::move(siblings[from]);
    siblings.erase(siblings.begin() + from);
    siblings.insert(siblings.begin() + (to > from ? to - 1 : to), std::move(moved));
    sigChanged();
}

} // namespace mirel_test
