// Just enough of a reader of XML to look into a page.
#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tolmer::test {

struct Element {
  std::string name;
  std::vector<std::pair<std::string, std::string>> attributes;
  std::string text;  // directly in it, entities resolved
  std::vector<Element> children;

  std::string attribute(std::string_view key) const {
    for (const auto& [name_, value] : attributes)
      if (name_ == key) return value;
    return {};
  }
  // This element and all below it, in the order of the page.
  template <class Visit>
  void walk(Visit visit) const {
    visit(*this);
    for (const Element& child : children) child.walk(visit);
  }
  std::vector<const Element*> all(std::string_view wanted) const {
    std::vector<const Element*> found;
    walk([&](const Element& element) {
      if (element.name == wanted) found.push_back(&element);
    });
    return found;
  }
  const Element& withId(std::string_view id) const {
    const Element* found = nullptr;
    walk([&](const Element& element) {
      if (element.attribute("id") == id) found = &element;
    });
    if (!found) throw std::out_of_range("no element " + std::string(id));
    return *found;
  }
};

// Throws where the page is not well-formed.
class MarkupReader {
 public:
  explicit MarkupReader(std::string_view page) : page_(page) {}

  Element readPage() {
    expect("<!DOCTYPE html>\n");
    Element root = readElement();
    if (page_.substr(at_) != "\n") fail("something follows the page");
    return root;
  }

 private:
  [[noreturn]] void fail(const std::string& what) const {
    throw std::invalid_argument(what + " before " + std::string(page_.substr(at_, 60)));
  }
  bool take(std::string_view text) {
    if (!page_.substr(at_).starts_with(text)) return false;
    at_ += text.size();
    return true;
  }
  void expect(std::string_view text) {
    if (!take(text)) fail("no " + std::string(text));
  }
  std::string upTo(std::string_view ends) {
    const auto end = page_.find_first_of(ends, at_);
    if (end == page_.npos || end == at_) fail("no name");
    std::string text(page_.substr(at_, end - at_));
    at_ = end;
    return text;
  }
  char readCharacter() {
    for (const auto& [entity, character] :
         {std::pair{"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&quot;", '"'}})
      if (take(entity)) return character;
    const char c = page_.at(at_);
    const bool isText =
        c != '&' && c != '<' && (static_cast<unsigned char>(c) >= 0x20 || c == '\n');
    if (!isText) fail("an unescaped character");
    ++at_;
    return c;
  }

  Element readElement() {
    expect("<");
    Element element;
    element.name = upTo(" />");
    while (take(" ")) {
      auto& [name, value] = element.attributes.emplace_back(upTo("=< >"), "");
      if (element.attribute(name) != "") fail("a second " + name);
      for (expect("=\""); !take("\"");) value += readCharacter();
    }
    if (take("/>")) return element;
    for (expect(">"); !take("</" + element.name + ">");) {
      if (page_.substr(at_).starts_with("</")) fail("not the end of " + element.name);
      if (page_.substr(at_).starts_with("<"))
        element.children.push_back(readElement());
      else
        element.text += readCharacter();
    }
    return element;
  }

  std::string_view page_;
  std::size_t at_ = 0;
};

}  // namespace tolmer::test
