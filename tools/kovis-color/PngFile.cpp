#include "PngFile.h"

#include "Interleave.h"

#include <csetjmp>
#include <cstring>
#include <png.h>
#include <unistd.h>
#include <vector>

namespace kovis::tool
{
namespace
{
constexpr std::size_t g_maxChunkBytes = std::size_t{64} << 20;
constexpr int g_compressionLevel = 6;

/// What the callbacks of libpng see. Nothing here is made or destroyed between a setjmp and its longjmp.
struct PngSession
{
    const InputFile* input = nullptr;
    int descriptor = -1;
    std::string message;
    bool bDamaged = false;

    png_structp png = nullptr;
    png_infop info = nullptr;
};

// libpng forbids a return from this function; the jump crosses frames of libpng only.
[[noreturn]] void onError(png_structp png, png_const_charp text)
{
    auto* session = static_cast<PngSession*>(png_get_error_ptr(png));
    session->message = text;
    png_longjmp(png, 1);
}

// Warnings about image data mean made-up samples; others speak of texts and profiles that are not used here.
void onWarning(png_structp png, png_const_charp text)
{
    auto* session = static_cast<PngSession*>(png_get_error_ptr(png));
    if (std::strncmp(text, "IDAT", 4) == 0 && !session->bDamaged)
    {
        session->bDamaged = true;
        session->message = text;
    }
}

void onRead(png_structp png, png_bytep target, std::size_t nbBytes)
{
    const auto* session = static_cast<const PngSession*>(png_get_io_ptr(png));
    if (session->input->read(target, nbBytes) != static_cast<std::int64_t>(nbBytes))
        png_error(png, "the data ends too early");
}

void onWrite(png_structp png, png_bytep source, std::size_t nbBytes)
{
    const auto* session = static_cast<const PngSession*>(png_get_io_ptr(png));
    while (nbBytes > 0)
    {
        const ssize_t result = ::write(session->descriptor, source, nbBytes);
        if (result < 0 && errno == EINTR)
            continue;
        if (result <= 0)
            png_error(png, std::strerror(errno));
        source += result;
        nbBytes -= static_cast<std::size_t>(result);
    }
}

void onFlush(png_structp) {}

// Each function below that sets a jump point holds no object with a destructor and changes no local after it.

bool readHeader(PngSession& session)
{
    if (setjmp(png_jmpbuf(session.png)) != 0)
        return false;
    png_set_read_fn(session.png, &session, onRead);
    png_set_user_limits(session.png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
    png_set_chunk_malloc_max(session.png, g_maxChunkBytes);
    png_read_info(session.png, session.info);
    return true;
}

// This asks for the memory of some rows: the header's claim must have been looked at before.
bool startReading(PngSession& session)
{
    if (setjmp(png_jmpbuf(session.png)) != 0)
        return false;
    png_set_expand(session.png);
    if (png_get_bit_depth(session.png, session.info) == 16)
        png_set_swap(session.png);
    png_set_interlace_handling(session.png);
    png_read_update_info(session.png, session.info);
    return true;
}

bool readOneRow(PngSession& session, png_bytep row)
{
    if (setjmp(png_jmpbuf(session.png)) != 0)
        return false;
    png_read_row(session.png, row, nullptr);
    return !session.bDamaged;
}

bool readAllRows(PngSession& session, png_bytepp rows)
{
    if (setjmp(png_jmpbuf(session.png)) != 0)
        return false;
    png_read_image(session.png, rows);
    return !session.bDamaged;
}

bool readEnd(PngSession& session)
{
    if (setjmp(png_jmpbuf(session.png)) != 0)
        return false;
    png_read_end(session.png, session.info);
    return !session.bDamaged;
}

bool writeHeader(PngSession& session, const PictureView& picture, int colourType, png_textp text)
{
    if (setjmp(png_jmpbuf(session.png)) != 0)
        return false;
    png_set_write_fn(session.png, &session, onWrite, onFlush);
    png_set_user_limits(session.png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
    png_set_compression_level(session.png, g_compressionLevel);
    png_set_IHDR(session.png, session.info, static_cast<png_uint_32>(picture.shape.sizeX),
                 static_cast<png_uint_32>(picture.shape.sizeY), static_cast<int>(8 * getElementSize(picture.shape.type)),
                 colourType, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (text != nullptr)
        png_set_text(session.png, session.info, text, 1);
    png_write_info(session.png, session.info);
    if (picture.shape.type == ElementType::eU16)
        png_set_swap(session.png);
    return true;
}

bool writeOneRow(PngSession& session, png_const_bytep row)
{
    if (setjmp(png_jmpbuf(session.png)) != 0)
        return false;
    png_write_row(session.png, row);
    return true;
}

bool writeEnd(PngSession& session)
{
    if (setjmp(png_jmpbuf(session.png)) != 0)
        return false;
    png_write_end(session.png, session.info);
    return true;
}

/// Makes and drops the libpng objects of a session.
class PngObjects
{
public:
    PngObjects(PngSession& session, bool bRead) : m_session(session), m_bRead(bRead)
    {
        session.png = bRead ? png_create_read_struct(PNG_LIBPNG_VER_STRING, &session, onError, onWarning)
                            : png_create_write_struct(PNG_LIBPNG_VER_STRING, &session, onError, onWarning);
        if (session.png == nullptr)
            throw std::bad_alloc();
        session.info = png_create_info_struct(session.png);
        if (session.info == nullptr)
        {
            release();
            throw std::bad_alloc();
        }
    }
    ~PngObjects() { release(); }
    PngObjects(const PngObjects&) = delete;
    PngObjects& operator=(const PngObjects&) = delete;

private:
    void release()
    {
        if (m_bRead)
            png_destroy_read_struct(&m_session.png, &m_session.info, nullptr);
        else
            png_destroy_write_struct(&m_session.png, &m_session.info);
    }

    PngSession& m_session;
    bool m_bRead;
};

std::string getDescription(const PngSession& session)
{
    png_textp texts = nullptr;
    int nbTexts = 0;
    png_get_text(session.png, session.info, &texts, &nbTexts);
    for (int index = 0; index < nbTexts; ++index)
    {
        if (std::strcmp(texts[index].key, "Description") == 0 && texts[index].text != nullptr)
            return toOneLine(std::string(texts[index].text, ::strnlen(texts[index].text, 500)));
    }
    return {};
}

void readSamples(PngSession& session, Picture& picture)
{
    const PictureShape& shape = picture.shape;
    const std::size_t elementSize = getElementSize(shape.type);
    const std::size_t rowBytes = shape.sizeX * shape.channels * elementSize;
    if (png_get_rowbytes(session.png, session.info) != rowBytes)
        throw session.input->makeDamageError("odd row length");
    std::vector<unsigned char*> planes;
    for (std::size_t channel = 0; channel < shape.channels; ++channel)
        planes.push_back(picture.getPlane<unsigned char>(0, channel));

    // An interlaced picture is whole only after its last pass.
    const bool bInterlaced = png_get_interlace_type(session.png, session.info) != PNG_INTERLACE_NONE;
    const std::size_t nbBufferRows = bInterlaced ? shape.sizeY : 1;
    std::vector<unsigned char> buffer(rowBytes * nbBufferRows);
    if (bInterlaced)
    {
        std::vector<png_bytep> rows;
        for (std::size_t row = 0; row < shape.sizeY; ++row)
            rows.push_back(buffer.data() + row * rowBytes);
        if (!readAllRows(session, rows.data()))
            throw session.input->makeDamageError(session.message);
        spreadPixels(buffer.data(), shape.getPlaneSamples(), shape.channels, elementSize, planes.data(), 0);
        return;
    }
    for (std::size_t row = 0; row < shape.sizeY; ++row)
    {
        if (!readOneRow(session, buffer.data()))
            throw session.input->makeDamageError(session.message);
        spreadPixels(buffer.data(), shape.sizeX, shape.channels, elementSize, planes.data(), row * shape.sizeX);
    }
}

ToolError makeWriteError(const std::string& path, const PngSession& session)
{
    return ToolError(path, "could not be written (" + session.message + ")", "see that the disk has room");
}
} // namespace

Picture readPng(const InputFile& file)
{
    PngSession session;
    session.input = &file;
    const PngObjects objects(session, true);
    if (!readHeader(session))
        throw file.makeDamageError(session.message);

    Picture picture;
    picture.format = "PNG";
    picture.shape.sizeX = png_get_image_width(session.png, session.info);
    picture.shape.sizeY = png_get_image_height(session.png, session.info);
    picture.shape.channels = png_get_channels(session.png, session.info);
    picture.shape.type = png_get_bit_depth(session.png, session.info) == 16 ? ElementType::eU16 : ElementType::eU8;
    // Deflate grows a byte to 1032 at most, and that byte may hold eight samples.
    file.checkClaim(picture.shape, 1100 * 8);
    if (!startReading(session))
        throw file.makeDamageError(session.message);
    // A palette has become three channels, transparency one more.
    picture.shape.channels = png_get_channels(session.png, session.info);
    picture.hasAlpha = (png_get_color_type(session.png, session.info) & PNG_COLOR_MASK_ALPHA) != 0;
    file.checkClaim(picture.shape, 0);
    picture.allocate();
    readSamples(session, picture);
    if (!readEnd(session))
        throw file.makeDamageError(session.message);
    picture.description = getDescription(session);
    return picture;
}

void writePng(const std::string& path, int descriptor, const PictureView& picture)
{
    const PictureShape& shape = picture.shape;
    if (shape.sizeX > PNG_UINT_31_MAX || shape.sizeY > PNG_UINT_31_MAX)
        throw ToolError(path, "is too large for a PNG file", "write a .tif instead");
    PngSession session;
    session.descriptor = descriptor;
    const PngObjects objects(session, false);

    constexpr int colourTypes[] = {PNG_COLOR_TYPE_GRAY, PNG_COLOR_TYPE_GRAY_ALPHA, PNG_COLOR_TYPE_RGB, PNG_COLOR_TYPE_RGB_ALPHA};
    std::string key = "Description";
    std::string description = picture.description;
    png_text text = {};
    text.compression = PNG_TEXT_COMPRESSION_NONE;
    text.key = key.data();
    text.text = description.data();
    text.text_length = description.size();
    if (!writeHeader(session, picture, colourTypes[shape.channels - 1], description.empty() ? nullptr : &text))
        throw makeWriteError(path, session);

    const std::size_t elementSize = getElementSize(shape.type);
    std::vector<unsigned char> row(shape.sizeX * shape.channels * elementSize);
    for (std::size_t y = 0; y < shape.sizeY; ++y)
    {
        gatherPixels(picture.planes.data(), y * shape.sizeX, shape.sizeX, shape.channels, elementSize, row.data());
        if (!writeOneRow(session, row.data()))
            throw makeWriteError(path, session);
    }
    if (!writeEnd(session))
        throw makeWriteError(path, session);
}
} // namespace kovis::tool
