// The least that filling every name of a template costs: unzip in memory, parse the same parts, set the cells, write, zip. pugixml
// and zlib alone, no checks, and only for templates of make_templates.py: one sheet, one cell a name.
//
// usage: xlsx_fill_bare TEMPLATE OUTPUT

#include <pugixml.hpp>
#include <zlib.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace {

using Bytes = std::vector<char>;
using Parts = std::map<std::string, Bytes>;

std::uint32_t Number(const char *at, int bytes)
{
    std::uint32_t number = 0;
    for (int i = bytes - 1; i >= 0; --i)
        number = number << 8 | std::uint8_t(at[i]);
    return number;
}

void Put(Bytes &out, std::uint32_t number, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        out.push_back(char(number >> (8 * i)));
}

Parts Unzipped(const char *path)
{
    std::ifstream file(path, std::ios::binary);
    const Bytes archive((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    const char *end = archive.data() + archive.size() - 22;
    const char *record = archive.data() + Number(end + 16, 4);
    Parts parts;
    for (std::uint32_t i = 0; i < Number(end + 10, 2); ++i) {
        const char *local = archive.data() + Number(record + 42, 4);
        const std::string name(record + 46, Number(record + 28, 2));
        Bytes part(Number(record + 24, 4));
        z_stream stream = {};
        inflateInit2(&stream, -MAX_WBITS);
        stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(local + 30 + Number(local + 26, 2) + Number(local + 28, 2)));
        stream.avail_in = Number(record + 20, 4);
        stream.next_out = reinterpret_cast<Bytef *>(part.data());
        stream.avail_out = uInt(part.size());
        inflate(&stream, Z_FINISH);
        inflateEnd(&stream);
        parts.emplace(name, std::move(part));
        record += 46 + name.size() + Number(record + 30, 2) + Number(record + 32, 2);
    }
    return parts;
}

void Zip(const Parts &parts, const char *path)
{
    Bytes archive;
    Bytes directory;
    for (const auto &[name, part] : parts) {
        z_stream stream = {};
        deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
        Bytes packed(deflateBound(&stream, part.size()));
        stream.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(part.data()));
        stream.avail_in = uInt(part.size());
        stream.next_out = reinterpret_cast<Bytef *>(packed.data());
        stream.avail_out = uInt(packed.size());
        deflate(&stream, Z_FINISH);
        packed.resize(stream.total_out);
        deflateEnd(&stream);

        Bytes header;
        Put(header, 20, 2);
        Put(header, 0, 2);
        Put(header, 8, 2);
        Put(header, 0x58210000, 4);
        Put(header, std::uint32_t(crc32(0, reinterpret_cast<const Bytef *>(part.data()), uInt(part.size()))), 4);
        Put(header, std::uint32_t(packed.size()), 4);
        Put(header, std::uint32_t(part.size()), 4);
        Put(header, std::uint32_t(name.size()), 2);
        Put(header, 0, 2);

        Put(directory, 0x02014b50, 4);
        Put(directory, 20, 2);
        directory.insert(directory.end(), header.begin(), header.end());
        Put(directory, 0, 2);
        Put(directory, 0, 4);
        Put(directory, 0, 4);
        Put(directory, std::uint32_t(archive.size()), 4);
        directory.insert(directory.end(), name.begin(), name.end());

        Put(archive, 0x04034b50, 4);
        archive.insert(archive.end(), header.begin(), header.end());
        archive.insert(archive.end(), name.begin(), name.end());
        archive.insert(archive.end(), packed.begin(), packed.end());
    }
    const auto offset = std::uint32_t(archive.size());
    archive.insert(archive.end(), directory.begin(), directory.end());
    Put(archive, 0x06054b50, 4);
    Put(archive, 0, 4);
    Put(archive, std::uint32_t(parts.size()), 2);
    Put(archive, std::uint32_t(parts.size()), 2);
    Put(archive, std::uint32_t(directory.size()), 4);
    Put(archive, offset, 4);
    Put(archive, 0, 2);
    std::ofstream(path, std::ios::binary).write(archive.data(), std::streamsize(archive.size()));
}

struct Writer : pugi::xml_writer
{
    explicit Writer(Bytes &target)
        : bytes(target)
    {
    }
    void write(const void *data, std::size_t size) override
    {
        bytes.insert(bytes.end(), static_cast<const char *>(data), static_cast<const char *>(data) + size);
    }
    Bytes &bytes;
};

void Write(const pugi::xml_document &document, Bytes &part)
{
    part.clear();
    Writer writer(part);
    document.save(writer, "", pugi::format_raw);
}

void Fill(const pugi::xml_document &workbook, pugi::xml_document &strings, pugi::xml_document &sheet)
{
    std::map<std::string, std::string> positions; // by name, sorted
    for (const pugi::xml_node &name : workbook.child("workbook").child("definedNames").children()) {
        std::string position = std::strchr(name.text().get(), '!') + 1;
        position.erase(std::remove(position.begin(), position.end(), '$'), position.end());
        positions[name.attribute("name").value()] = position;
    }
    pugi::xml_node table = strings.child("sst");
    std::unordered_map<std::string_view, int> indices;
    int count = 0;
    for (const pugi::xml_node &string : table.children("si"))
        indices.emplace(string.child_value("t"), count++);
    std::unordered_map<std::string_view, int> wanted;
    int k = 0;
    for (const auto &position : positions)
        wanted.emplace(position.second, k++);

    for (const pugi::xml_node &row : sheet.child("worksheet").child("sheetData").children()) {
        for (pugi::xml_node &cell : row.children()) {
            const auto found = wanted.find(cell.attribute("r").value());
            if (found == wanted.end())
                continue;
            if (found->second % 2 == 0) {
                cell.remove_attribute("t");
                cell.child("v").text().set(100000 + found->second);
                continue;
            }
            const std::string text = "50 value " + std::to_string(found->second);
            auto index = indices.find(text);
            if (index == indices.end()) {
                pugi::xml_node string = table.append_child("si").append_child("t");
                string.text().set(text.c_str());
                index = indices.emplace(string.text().get(), count++).first;
            }
            cell.attribute("t").set_value("s");
            cell.child("v").text().set(index->second);
        }
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3)
        return 2;
    Parts parts = Unzipped(argv[1]);
    const char *names[] = {"xl/_rels/workbook.xml.rels", "[Content_Types].xml", "xl/workbook.xml", "xl/sharedStrings.xml",
                           "xl/worksheets/sheet1.xml"};
    pugi::xml_document documents[std::size(names)];
    for (std::size_t i = 0; i < std::size(names); ++i) {
        Bytes &part = parts[names[i]];
        documents[i].load_buffer(part.data(), part.size());
        part = Bytes(); // the document has a copy of its own
    }
    Fill(documents[2], documents[3], documents[4]);
    for (std::size_t i = 0; i < std::size(names); ++i)
        Write(documents[i], parts[names[i]]);
    Zip(parts, argv[2]);
    return 0;
}
