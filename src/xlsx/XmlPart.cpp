#include "xlsx/XmlPart_p.h"

#include <algorithm>
#include <unordered_set>

namespace Velmora {

namespace {

/// Collects what pugixml writes. A carriage return comes from a reference, because those of the source were made line feeds, and must
/// become one again.
struct Writer : pugi::xml_writer
{
    QByteArray text;
    void write(const void *data, std::size_t size) override
    {
        const char *begin = static_cast<const char *>(data);
        const char *end = begin + size;
        while (const void *found = std::memchr(begin, '\r', std::size_t(end - begin))) {
            const char *at = static_cast<const char *>(found);
            Append(begin, at);
            text.append("&#13;");
            begin = at + 1;
        }
        Append(begin, end);
    }

private:
    void Append(const char *begin, const char *end) { text.append(begin, int(end - begin)); }
};

bool StartsWith(std::string_view source, std::size_t at, std::string_view text)
{
    return source.compare(at, text.size(), text) == 0;
}

std::size_t Behind(std::string_view source, std::size_t from, std::string_view text)
{
    const std::size_t found = source.find(text, from);
    return found == std::string_view::npos ? source.size() : found + text.size();
}

/// Behind the tag that begins at \a at: an angle bracket in quotes does not end it.
std::size_t BehindTag(std::string_view source, std::size_t at)
{
    char quote = '\0';
    for (; at < source.size(); ++at) {
        const char c = source[at];
        if (quote) {
            if (c == quote)
                quote = '\0';
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '>') {
            return at + 1;
        }
    }
    return source.size();
}

/// Walks over what is whole from \a at on, \a depth elements deep in: to behind the tag that ends the element.
std::size_t BehindElement(std::string_view source, std::size_t at, int depth)
{
    while (at < source.size()) {
        at = source.find('<', at);
        if (at == std::string_view::npos)
            break;
        if (StartsWith(source, at, "<!--")) {
            at = Behind(source, at, "-->");
        } else if (StartsWith(source, at, "<![CDATA[")) {
            at = Behind(source, at, "]]>");
        } else if (StartsWith(source, at, "<?")) {
            at = Behind(source, at, "?>");
        } else {
            const bool isEnd = StartsWith(source, at, "</");
            at = BehindTag(source, at);
            if (isEnd)
                --depth;
            else if (source[at - 2] != '/')
                ++depth;
            if (depth <= 0)
                return at;
        }
    }
    return source.size();
}

pugi::xml_node PreviousElement(pugi::xml_node node)
{
    do
        node = node.previous_sibling();
    while (node && node.type() != pugi::node_element);
    return node;
}

pugi::xml_node NextElement(pugi::xml_node node)
{
    do
        node = node.next_sibling();
    while (node && node.type() != pugi::node_element);
    return node;
}

// No program writes elements that are deeper, or have more of these; looking one up costs no more than it may, and what is recursive
// in pugixml ends.
constexpr int kDeepest = 256;
constexpr int kMostAttributes = 1000;
constexpr int kMostChildrenOfCell = 1000;

bool HasManyAttributes(const pugi::xml_node &node)
{
    int count = 0;
    for (pugi::xml_attribute attribute = node.first_attribute(); attribute && count <= kMostAttributes;
         attribute = attribute.next_attribute())
        ++count;
    return count > kMostAttributes;
}

bool IsOrdinary(const pugi::xml_document &document)
{
    int depth = 0;
    int childrenOfCell = 0;
    pugi::xml_node node = document.first_child();
    while (node) {
        if (node.type() == pugi::node_element) {
            if (HasManyAttributes(node))
                return false;
            const char *name = LocalName(node);
            if (name[0] == 'c' && name[1] == '\0')
                childrenOfCell = 0;
        }
        if (++childrenOfCell > kMostChildrenOfCell && IsElement(node.parent(), "c"))
            return false;
        if (const pugi::xml_node child = node.first_child()) {
            if (++depth > kDeepest)
                return false;
            node = child;
            continue;
        }
        while (!node.next_sibling() && depth > 0) {
            node = node.parent();
            --depth;
        }
        node = node.next_sibling();
    }
    return true;
}

} // namespace

const char *LocalName(const pugi::xml_node &node)
{
    const char *name = node.name();
    const char *colon = std::strchr(name, ':');
    return colon ? colon + 1 : name;
}

pugi::xml_node ChildOf(const pugi::xml_node &parent, const char *localName)
{
    for (pugi::xml_node child = parent.first_child(); child; child = child.next_sibling()) {
        if (IsElement(child, localName))
            return child;
    }
    return {};
}

pugi::xml_node NextOfItsName(const pugi::xml_node &node)
{
    const char *name = LocalName(node);
    for (pugi::xml_node next = node.next_sibling(); next; next = next.next_sibling()) {
        if (IsElement(next, name))
            return next;
    }
    return {};
}

pugi::xml_node MakeChild(pugi::xml_node parent, const char *localName, const pugi::xml_node &before)
{
    const char *parentName = parent.name();
    const std::string name = std::string(parentName, LocalName(parent)) + localName;
    return before ? parent.insert_child_before(name.c_str(), before) : parent.append_child(name.c_str());
}

pugi::xml_attribute AttributeOf(const pugi::xml_node &node, const char *localName)
{
    if (const pugi::xml_attribute plain = node.attribute(localName))
        return plain;
    for (pugi::xml_attribute attribute = node.first_attribute(); attribute; attribute = attribute.next_attribute()) {
        const char *colon = std::strchr(attribute.name(), ':');
        if (colon && std::strcmp(colon + 1, localName) == 0)
            return attribute;
    }
    return {};
}

void SetAttribute(pugi::xml_node node, const char *name, const char *value)
{
    pugi::xml_attribute attribute = node.attribute(name);
    if (!attribute)
        attribute = node.append_attribute(name);
    attribute.set_value(value);
}

std::string OwnText(const pugi::xml_node &node)
{
    std::string text = node.value(); // an element's first text is its value
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            text += child.value();
    }
    return text;
}

std::string AllText(const pugi::xml_node &node)
{
    std::string text = node.value();
    pugi::xml_node at = node.first_child();
    while (at && at != node) {
        if (at.type() == pugi::node_pcdata || at.type() == pugi::node_cdata || at.type() == pugi::node_element)
            text += at.value();
        if (at.first_child()) {
            at = at.first_child();
            continue;
        }
        while (at != node && !at.next_sibling())
            at = at.parent();
        if (at != node)
            at = at.next_sibling();
    }
    return text;
}

pugi::xml_node CopyInFrontOf(const pugi::xml_node &node, pugi::xml_node parent, const pugi::xml_node &before)
{
    pugi::xml_node copy = before ? parent.insert_child_before(node.type(), before) : parent.append_child(node.type());
    copy.set_name(node.name());
    copy.set_value(node.value());
    if (*node.value() && node.type() == pugi::node_element)
        copy.text().set(node.value());
    for (const pugi::xml_attribute &attribute : node.attributes())
        copy.append_attribute(attribute.name()).set_value(attribute.value());
    for (const pugi::xml_node &child : node.children())
        CopyInFrontOf(child, copy, {});
    return copy;
}

void SetOwnText(pugi::xml_node node, std::string_view text)
{
    node.remove_children();
    node.text().set(std::string(text).c_str());
}

// --- XmlPart ---

bool XmlPart::Parse(const QByteArray &source)
{
    // All that is there is kept. A text that comes first in its element is no node of its own, which saves a node for each cell.
    constexpr unsigned int kOptions = pugi::parse_full | pugi::parse_ws_pcdata | pugi::parse_embed_pcdata;
    if (!m_document.load_buffer(source.constData(), std::size_t(source.size()), kOptions) || !Root() || !IsOrdinary(m_document))
        return false;
    // In another encoding than UTF-8, places are not those of the source.
    const std::ptrdiff_t offset = Root().offset_debug();
    m_keepsPlaces = offset > 0 && StartsWith({source.constData(), std::size_t(source.size())}, std::size_t(offset - 1), "<")
        && StartsWith({source.constData(), std::size_t(source.size())}, std::size_t(offset), Root().name());
    m_source = source;
    return true;
}

void XmlPart::Changed(const pugi::xml_node &node)
{
    // Many cells of one new row, one after the other, go with the row.
    const pugi::xml_node last = m_changed.empty() ? pugi::xml_node() : m_changed.back();
    if (m_changedEverywhere || (!m_changed.empty() && (last == node || last == node.parent())))
        return;
    if (m_isIndexed && !m_changeIndex.emplace(node.hash_value(), m_changed.size()).second)
        return;
    m_changed.push_back(node);
    if (!m_isIndexed && m_changed.size() > m_mostChanged)
        ForgetRepetitions();
}

/// A host may fill in the same cells any number of times.
void XmlPart::ForgetRepetitions()
{
    const auto isBefore = [](const pugi::xml_node &a, const pugi::xml_node &b) { return a.hash_value() < b.hash_value(); };
    std::sort(m_changed.begin(), m_changed.end(), isBefore);
    m_changed.erase(std::unique(m_changed.begin(), m_changed.end()), m_changed.end());
    m_mostChanged = std::max(m_mostChanged, 2 * m_changed.size());
}

void XmlPart::Remove(pugi::xml_node node)
{
    if (!m_changedEverywhere) {
        ForgetChangesIn(node);
        if (IsInSource(node)) {
            const std::size_t begin = BeginOf(node);
            m_removed.push_back({begin, BehindElement({m_source.constData(), std::size_t(m_source.size())}, begin, 0)});
        }
    }
    node.parent().remove_child(node);
}

/// Parts from which nothing is removed, sheets with many changed cells above all, do without the index.
void XmlPart::IndexChanges()
{
    if (m_isIndexed)
        return;
    m_isIndexed = true;
    std::size_t count = 0;
    for (const pugi::xml_node &node : m_changed) {
        if (m_changeIndex.emplace(node.hash_value(), count).second)
            m_changed[count++] = node;
    }
    m_changed.resize(count);
}

void XmlPart::ForgetChangesIn(const pugi::xml_node &removed)
{
    IndexChanges();
    pugi::xml_node at = removed;
    while (at && !m_changed.empty()) {
        const auto found = m_changeIndex.find(at.hash_value());
        if (found != m_changeIndex.end()) { // the last takes its place
            const std::size_t place = found->second;
            m_changeIndex[m_changed.back().hash_value()] = place;
            m_changed[place] = m_changed.back();
            m_changed.pop_back();
            m_changeIndex.erase(at.hash_value());
        }
        if (at.first_child()) {
            at = at.first_child();
            continue;
        }
        while (at != removed && !at.next_sibling())
            at = at.parent();
        at = at == removed ? pugi::xml_node() : at.next_sibling();
    }
}

void XmlPart::ChangedEverywhere()
{
    m_changedEverywhere = true;
    m_changed.clear();
    m_changed.shrink_to_fit();
    m_changeIndex.clear();
    m_removed.clear();
    m_source.clear();
}

bool XmlPart::IsInSource(const pugi::xml_node &node) const
{
    return node.offset_debug() > 0;
}

std::size_t XmlPart::BeginOf(const pugi::xml_node &node) const
{
    return std::size_t(node.offset_debug()) - 1;
}

/// Puts a new element and the new ones that follow it in front of the next that was there, or at the end of the element around them.
XmlPart::Edit XmlPart::Insertion(const pugi::xml_node &first) const
{
    const std::string_view source(m_source.constData(), std::size_t(m_source.size()));
    Edit edit{0, 0, first, true};
    pugi::xml_node at = first;
    while (at && !IsInSource(at))
        at = NextElement(at);
    if (at) {
        edit.begin = edit.end = BeginOf(at);
        return edit;
    }
    const pugi::xml_node parent = first.parent();
    pugi::xml_node last = first;
    while (last && !IsInSource(last))
        last = PreviousElement(last);
    std::size_t end = 0;
    if (last) {
        end = BehindElement(source, BehindElement(source, BeginOf(last), 0), 1);
    } else {
        const std::size_t begin = BeginOf(parent);
        end = BehindElement(source, begin, 0);
        if (source[end - 2] == '/') { // an empty element in one tag
            edit.begin = end - 2;
            edit.end = end;
            edit.opensParent = true;
            return edit;
        }
    }
    edit.begin = edit.end = source.rfind("</", end - 1);
    return edit;
}

std::vector<XmlPart::Edit> XmlPart::Edits() const
{
    const std::string_view source(m_source.constData(), std::size_t(m_source.size()));
    std::vector<Edit> edits = m_removed;
    std::unordered_set<std::size_t> done; // by their hash, which is their address
    for (pugi::xml_node node : m_changed) {
        // A new element goes with the outermost new one around it.
        while (!IsInSource(node) && !IsInSource(node.parent()))
            node = node.parent();
        if (!done.insert(node.hash_value()).second)
            continue;
        if (IsInSource(node)) {
            const std::size_t begin = BeginOf(node);
            edits.push_back({begin, BehindElement(source, begin, 0), node});
            continue;
        }
        for (pugi::xml_node before = PreviousElement(node); before && !IsInSource(before); before = PreviousElement(before)) {
            node = before;
            done.insert(node.hash_value());
        }
        for (pugi::xml_node next = node; next && !IsInSource(next); next = NextElement(next))
            done.insert(next.hash_value());
        edits.push_back(Insertion(node));
    }
    // What lies within another edit is written with it, so the longer comes first; what is put in front of an element, before it.
    std::stable_sort(edits.begin(), edits.end(), [](const Edit &a, const Edit &b) {
        const bool isInsertion = a.begin == a.end;
        if (a.begin != b.begin)
            return a.begin < b.begin;
        return isInsertion != (b.begin == b.end) ? isInsertion : a.end > b.end;
    });
    return edits;
}

QByteArray XmlPart::Written() const
{
    if (!IsChanged())
        return m_source;
    if (m_changedEverywhere || !m_keepsPlaces || !IsInSource(Root()))
        return WrittenAnew();
    Writer writer;
    QByteArray &written = writer.text;
    written.reserve(m_source.size() + m_source.size() / 16);
    std::size_t at = 0;
    for (const Edit &edit : Edits()) {
        if (edit.begin < at)
            continue;
        written.append(m_source.constData() + at, int(edit.begin - at));
        if (edit.opensParent)
            written.append('>');
        for (pugi::xml_node node = edit.node; node; node = edit.isRun ? NextElement(node) : pugi::xml_node()) {
            if (edit.isRun && IsInSource(node))
                break;
            node.print(writer, "", pugi::format_raw, pugi::encoding_utf8);
        }
        if (edit.opensParent)
            written.append("</").append(edit.node.parent().name()).append('>');
        at = edit.end;
    }
    return written.append(m_source.constData() + at, m_source.size() - int(at));
}

QByteArray XmlPart::WrittenAnew() const
{
    // It is written as UTF-8, whatever it was.
    pugi::xml_node declaration = m_document.first_child();
    if (declaration.type() == pugi::node_declaration && declaration.attribute("encoding"))
        declaration.attribute("encoding").set_value("UTF-8");
    Writer writer;
    m_document.save(writer, "", pugi::format_raw | pugi::format_no_declaration, pugi::encoding_utf8);
    return writer.text;
}

} // namespace Velmora
