// foundation/vela-mlsection.cpp: see the header. Sections are written as markup in vela-mlwriter.cpp.

#include "foundation/vela-mlsection.h"

#include "foundation/vela-error.h"
#include "foundation/vela-mlparser.h"
#include "foundation/vela-mlwriter.h"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

namespace {

constexpr unsigned int kFirstAttributes = 2;

bool equalsFolded(mlName const* name, std::string_view text)
{
    return name && name->length == text.size() &&
           std::equal(text.begin(), text.end(), name->units(),
                      [](char a, unsigned short b) { return mlFold(static_cast<unsigned char>(a)) == mlFold(b); });
}

bool equalsFolded(mlName const* name, sstring const& text)
{
    return name && name->length == text.getLength() &&
           std::equal(name->units(), name->units() + name->length, text.getUnicode(),
                      [](unsigned short a, unsigned short b) { return mlFold(a) == mlFold(b); });
}

} // namespace

/// A block of attributes, which never moves. Each block has twice the capacity of the one before.
struct mlSection::AttrBlock
{
    AttrBlock* next;
    uint32_t count;
    uint32_t capacity;

    static size_t bytes(uint32_t capacity) { return sizeof(AttrBlock) + capacity * sizeof(mlAttr); }
    mlAttr* at(uint32_t index) { return reinterpret_cast<mlAttr*>(this + 1) + index; }
};

mlAttr::mlAttr() : m_pool(new mlPool(nullptr)) { m_pool->m_isOneAttr = true; }

mlAttr::mlAttr(mlAttr const& other) : mlAttr()
{
    m_pool->setLocale(other.m_pool->m_locale);
    copyContent(other);
}

mlAttr& mlAttr::operator=(mlAttr const& other)
{
    if (this != &other)
        copyContent(other);
    return *this;
}

/// Copies name, value and line into this attribute's pool.
void mlAttr::copyContent(mlAttr const& other)
{
    assert(m_pool && other.m_pool);
    m_name = other.m_name ? m_pool->name(other.m_name->units(), other.m_name->length) : nullptr;
    m_pool->setText(m_value, other.m_value.units(), other.m_value.length);
    m_line = other.m_line;
    m_hasValue = other.m_hasValue;
}

// Not inline: at -O3 g++ 12 wrongly warns that the pool of a parser is freed here.
void mlAttr::freePool() { delete m_pool; }

sstring mlAttr::getLHS() const
{
    assert(m_pool); // null after a move
    return m_name ? m_pool->makeString(m_name->units(), m_name->length) : sstring();
}

unsigned short const* mlAttr::getNameUnits(unsigned int* length) const
{
    *length = m_name ? m_name->length : 0;
    return m_name ? m_name->units() : nullptr;
}

sstring mlAttr::getRHS() const
{
    assert(m_pool);
    return m_pool->makeString(m_value.units(), m_value.length);
}

void mlAttr::set(sstring const& newName, sstring const& newValue)
{
    setName(newName.getUnicode(), newName.getLength());
    m_pool->setText(m_value, newValue.getUnicode(), newValue.getLength());
    m_hasValue = true;
}

void mlAttr::setName(unsigned short const* units, unsigned int length) { m_name = m_pool->name(units, length); }

sstring mlAttr::toString() const
{
    mlWriter writer;
    writer.writeAttr(*this);
    return writer.result(*m_pool);
}

bool mlAttr::isNamed(char const* name) const { return equalsFolded(m_name, std::string_view(name)); }

mlSection::mlSection(mlParser* parser) : m_pool(new mlPool(parser)), m_flags(kOwnsPool) {}

/// Runs only for sections that own their pool; all others are freed with theirs.
mlSection::~mlSection()
{
    if (hasFlag(kOwnsPool))
        delete m_pool;
}

mlSection* mlSection::make(mlPool* home) { return new (home->allocate(sizeof(mlSection))) mlSection(home); }

void mlSection::destroyAdopted(mlSection* first)
{
    while (first) {
        assert(first->hasFlag(kOwnsPool));
        mlPool& home = *first->m_pool;
        mlSection* rest = home.m_nextAdopted;
        while (mlSection* inner = home.m_adopted) {
            home.m_adopted = inner->m_pool->m_nextAdopted;
            inner->m_pool->m_nextAdopted = rest;
            rest = inner;
        }
        delete first;
        first = rest;
    }
}

void mlSection::requireNoTag() const
{
    if (isTag())
        throw velaError(EINVAL);
}

void mlSection::requireNoText() const
{
    if (isText())
        throw velaError(EINVAL);
}

sstring mlSection::getName() const
{
    return !isText() && m_tag.name ? m_pool->makeString(m_tag.name->units(), m_tag.name->length) : sstring();
}

unsigned short const* mlSection::getNameUnits(unsigned int* length) const
{
    mlName const* name = isText() ? nullptr : m_tag.name;
    *length = name ? name->length : 0;
    return name ? name->units() : nullptr;
}

bool mlSection::isNamed(char const* name) const { return isTag() && equalsFolded(m_tag.name, std::string_view(name)); }

mlAttr* mlSection::getAttr(unsigned int index) const
{
    AttrBlock* block = isText() ? nullptr : m_tag.attributes;
    while (block && index >= block->count) {
        index -= block->count;
        block = block->next;
    }
    return block ? block->at(index) : nullptr;
}

unsigned int mlSection::getAttrCount() const
{
    unsigned int count = 0;
    for (AttrBlock* block = isText() ? nullptr : m_tag.attributes; block; block = block->next)
        count += block->count;
    return count;
}

mlAttr* mlSection::findAttr(char const* name) const
{
    std::string_view const wanted(name); // measured once: most elements are asked for many names that they do not have
    for (AttrBlock* block = isText() ? nullptr : m_tag.attributes; block; block = block->next)
        for (uint32_t i = 0; i < block->count; ++i)
            if (equalsFolded(block->at(i)->m_name, wanted))
                return block->at(i);
    return nullptr;
}

mlAttr* mlSection::nextAttr()
{
    requireNoText();
    AttrBlock** place = &m_tag.attributes;
    uint32_t capacity = kFirstAttributes;
    while (*place && (*place)->count == (*place)->capacity) {
        capacity = std::max(kFirstAttributes, (*place)->capacity * 2);
        place = &(*place)->next;
    }
    if (!*place)
        *place = new (m_pool->allocate(AttrBlock::bytes(capacity))) AttrBlock{nullptr, 0, capacity};
    return new ((*place)->at((*place)->count++)) mlAttr(m_pool);
}

/// Moves attributes, which were made in the section's pool, into the section, in one block of exactly their number.
void mlSection::setAttrs(velaArray<mlAttr>& attributes)
{
    assert(!isText() && !m_tag.attributes);
    auto const count = static_cast<uint32_t>(attributes.size());
    m_tag.attributes = new (m_pool->allocate(AttrBlock::bytes(count))) AttrBlock{nullptr, count, count};
    std::uninitialized_move(attributes.begin(), attributes.end(), m_tag.attributes->at(0));
}

void mlSection::addAttr(sstring const& name, sstring const& value) { nextAttr()->set(name, value); }

void mlSection::removeAttr(sstring const& name)
{
    requireNoText();
    AttrBlock* keptBlock = m_tag.attributes;
    uint32_t kept = 0; // attributes kept in keptBlock
    for (AttrBlock* block = m_tag.attributes; block; block = block->next) {
        for (uint32_t i = 0; i < block->count; ++i) {
            if (equalsFolded(block->at(i)->m_name, name))
                continue;
            if (kept == keptBlock->capacity) {
                keptBlock = keptBlock->next;
                kept = 0;
            }
            assert(keptBlock && kept < keptBlock->capacity);
            mlAttr* const place = keptBlock->at(kept++);
            if (place != block->at(i))
                new (place) mlAttr(std::move(*block->at(i)));
        }
    }
    for (; keptBlock; keptBlock = keptBlock->next, kept = 0)
        keptBlock->count = kept;
}

unsigned int mlSection::getChildCount() const { return isText() ? 0 : m_tag.childCount; }

mlSection* mlSection::getChild(unsigned int index) const
{
    while (index >= getChildCount())
        if (!parseChild(index))
            return nullptr;
    return childArray()[index];
}

/// Lets the parser read until the child exists. Returns false if it never will.
bool mlSection::parseChild(unsigned int index) const
{
    return hasFlag(kIsOpen) && m_pool->m_parser && m_pool->m_parser->parseUntilChild(this, index);
}

/// The first child is stored in the section itself, because most elements have only one.
void mlSection::growChildren()
{
    assert(m_tag.childCount == m_tag.childCapacity);
    uint32_t const capacity = m_tag.childCapacity == 0 ? 1 : m_tag.childCapacity * 2;
    if (capacity > 1) {
        auto** grown = static_cast<mlSection**>(m_pool->allocate(capacity * sizeof(mlSection*)));
        std::copy_n(childArray(), m_tag.childCount, grown);
        if (m_tag.childCapacity > 1)
            m_pool->release(m_tag.children, m_tag.childCapacity * sizeof(mlSection*));
        m_tag.children = grown;
    }
    m_tag.childCapacity = capacity;
}

void mlSection::linkChild(mlSection* child)
{
    assert(!isText() && child != this);
    if (m_tag.childCount == m_tag.childCapacity)
        growChildren();
    childArray()[m_tag.childCount++] = child;
}

mlSection* mlSection::nextSection()
{
    requireNoText();
    mlSection* child = make(m_pool);
    linkChild(child);
    return child;
}

void mlSection::append(mlSection* child)
{
    requireNoText();
    assert(child->hasFlag(kOwnsPool)); // a section of a parser would be freed with that parser
    linkChild(child);
    child->m_pool->m_nextAdopted = std::exchange(m_pool->m_adopted, child);
    child->setParser(m_pool->m_parser);
}

/// Appended sections have pools of their own, each with a pointer to the parser.
void mlSection::setParser(mlParser* parser)
{
    velaArray<mlPool*> waiting{m_pool};
    while (!waiting.empty()) {
        mlPool* home = waiting.back();
        waiting.pop_back();
        if (std::exchange(home->m_parser, parser) == parser)
            continue;
        for (mlSection* section = home->m_adopted; section; section = section->m_pool->m_nextAdopted)
            waiting.push_back(section->m_pool);
    }
}

mlSection* mlSection::findSection(sstring const& name) const
{
    struct Level
    {
        mlSection const* section;
        unsigned int nextChild;
    };
    velaArray<Level> path{{this, 0}};
    while (!path.empty()) {
        mlSection* child = path.back().section->getChild(path.back().nextChild++);
        if (!child)
            path.pop_back();
        else if (child->isTag() && equalsFolded(child->m_tag.name, name))
            return child;
        else if (!child->isText())
            path.push_back({child, 0});
    }
    return nullptr;
}

unsigned short const* mlSection::getDataUnits(unsigned int* length) const
{
    requireNoTag();
    *length = 0;
    if (!isText())
        return nullptr;
    if (hasFlag(kTruncated) && m_pool->m_parser)
        m_pool->m_parser->readFullText(const_cast<mlSection*>(this));
    *length = m_text.data.length;
    return m_text.data.units();
}

sstring mlSection::getData() const
{
    unsigned int length = 0;
    unsigned short const* units = getDataUnits(&length);
    return units ? m_pool->makeString(units, length) : sstring();
}

void mlSection::setTag(sstring const& name, mlTagType type)
{
    setTagName(name);
    setTagType(type);
}

void mlSection::setTagName(sstring const& name) { setTagName(name.getUnicode(), name.getLength()); }

void mlSection::setTagName(unsigned short const* units, unsigned int length)
{
    requireNoText();
    setFlag(kIsTag, true);
    m_tag.name = m_pool->name(units, length);
}

void mlSection::setTagType(mlTagType type)
{
    requireNoText();
    setFlag(kIsTag, true);
    m_tagType = static_cast<uint8_t>(type);
}

void mlSection::becomeText()
{
    requireNoTag();
    if (isText())
        return;
    m_text = TextBody{mlText(), kNoStart, 0};
    setFlag(kIsText, true);
}

void mlSection::setData(sstring const& text)
{
    becomeText();
    setFlag(kTruncated, false);
    m_pool->setText(m_text.data, text.getUnicode(), text.getLength());
}

void mlSection::setText(sstring const& text, bookmark const& start, int isTruncated, int isCData, int hasLeadingSpace)
{
    assignText(text.getUnicode(), text.getLength(), start, isTruncated != 0, isCData != 0, hasLeadingSpace != 0);
}

void mlSection::assignText(unsigned short const* units, unsigned int length, bookmark const& start, bool isLong,
                           bool isData, bool spaced)
{
    becomeText();
    assert(isText() && !isTag());
    m_pool->setText(m_text.data, units, length);
    m_text.startOffset = start.isEmpty() ? kNoStart : start.offset();
    m_text.startUnit = start.unit();
    setFlag(kTruncated, isLong);
    setFlag(kIsCData, isData);
    setFlag(kLeadingSpace, spaced);
}

/// Copies everything but the children.
void mlSection::copyItem(mlSection* to) const
{
    to->m_line = m_line;
    to->m_tagType = m_tagType;
    to->m_flags = static_cast<uint8_t>(m_flags & ~(kOwnsPool | kIsOpen | kIsText));
    if (isText()) {
        bookmark const start =
            m_text.startOffset == kNoStart ? bookmark() : bookmark(m_text.startOffset, m_text.startUnit);
        to->assignText(m_text.data.units(), m_text.data.length, start, hasFlag(kTruncated), isCData(),
                       hasLeadingSpace());
        return;
    }
    if (m_tag.name)
        to->m_tag.name = to->m_pool->name(m_tag.name->units(), m_tag.name->length);
    for (AttrBlock* block = m_tag.attributes; block; block = block->next) {
        for (uint32_t i = 0; i < block->count; ++i) {
            mlAttr const& from = *block->at(i);
            mlAttr* copy = to->nextAttr();
            if (from.m_name)
                copy->setName(from.m_name->units(), from.m_name->length);
            copy->m_pool->setText(copy->m_value, from.m_value.units(), from.m_value.length);
            copy->m_line = from.m_line;
        }
    }
}

/// A copy with everything that has been parsed below it.
mlSection* mlSection::copyInto(mlPool* home) const
{
    mlSection* result = make(home);
    copyItem(result);
    velaArray<std::pair<mlSection const*, mlSection*>> waiting{{this, result}};
    while (!waiting.empty()) {
        auto const [from, to] = waiting.back();
        waiting.pop_back();
        for (unsigned int i = 0; i < from->getChildCount(); ++i) {
            mlSection* child = to->nextSection();
            from->childArray()[i]->copyItem(child);
            waiting.push_back({from->childArray()[i], child});
        }
    }
    return result;
}

sstring mlSection::toString() const
{
    mlWriter writer;
    writer.writeTree(*this);
    return writer.result(*m_pool);
}

sstring mlSection::toFormattedString(unsigned int indent) const
{
    mlWriter writer;
    writer.useLines(indent);
    writer.writeTree(*this);
    return writer.result(*m_pool);
}
