#include "JpegFile.h"

#include "Interleave.h"

#include <array>
#include <csetjmp>
#include <cstdio>
#include <cstring>
#include <memory>
#include <unistd.h>
#include <vector>

// jpeglib.h needs FILE and size_t to be known.
#include <jerror.h>
#include <jpeglib.h>

namespace kovis::tool
{
namespace
{
constexpr int g_quality = 95;
constexpr int g_maxScans = 500;
constexpr JDIMENSION g_rowsAtOnce = 1;

/// The library's error record with what its callbacks need. libjpeg hands the first member round.
struct JpegErrors
{
    jpeg_error_mgr manager = {};
    std::jmp_buf jump = {};
    std::array<char, JMSG_LENGTH_MAX> message = {};
    bool bDamaged = false;
};

[[noreturn]] void onError(j_common_ptr common)
{
    auto* errors = reinterpret_cast<JpegErrors*>(common->err);
    common->err->format_message(common, errors->message.data());
    std::longjmp(errors->jump, 1);
}

// Level -1 is a warning: some mean that samples were made up, the others are about marks that change nothing.
void onMessage(j_common_ptr common, int level)
{
    if (level >= 0)
        return;
    auto* errors = reinterpret_cast<JpegErrors*>(common->err);
    switch (common->err->msg_code)
    {
    case JWRN_ADOBE_XFORM:
    case JWRN_EXTRANEOUS_DATA:
    case JWRN_JFIF_MAJOR:
    case JWRN_TOO_MUCH_DATA:
        return;
    default:
        break;
    }
    if (!errors->bDamaged)
        common->err->format_message(common, errors->message.data());
    errors->bDamaged = true;
}

void onOutput(j_common_ptr) {}

void setUp(JpegErrors& errors)
{
    jpeg_std_error(&errors.manager);
    errors.manager.error_exit = onError;
    errors.manager.emit_message = onMessage;
    errors.manager.output_message = onOutput;
}

// A progressive file may ask for its scans over and over; no honest one has so many.
void onProgress(j_common_ptr common)
{
    if (common->is_decompressor && reinterpret_cast<j_decompress_ptr>(common)->input_scan_number > g_maxScans)
    {
        auto* errors = reinterpret_cast<JpegErrors*>(common->err);
        std::snprintf(errors->message.data(), errors->message.size(), "more than %d scans", g_maxScans);
        std::longjmp(errors->jump, 1);
    }
}

struct Decoder
{
    JpegErrors errors;
    jpeg_decompress_struct jpeg = {};
    jpeg_progress_mgr progress = {};

    Decoder()
    {
        setUp(errors);
        jpeg.err = &errors.manager;
        progress.progress_monitor = onProgress;
    }
    ~Decoder() { jpeg_destroy_decompress(&jpeg); }
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;
};

struct Encoder
{
    JpegErrors errors;
    jpeg_compress_struct jpeg = {};

    Encoder()
    {
        setUp(errors);
        jpeg.err = &errors.manager;
    }
    ~Encoder() { jpeg_destroy_compress(&jpeg); }
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;
};

// Each function below that sets a jump point holds no object with a destructor and changes no local after it.

bool readHeader(Decoder& decoder, const unsigned char* data, unsigned long nbBytes)
{
    if (setjmp(decoder.errors.jump) != 0)
        return false;
    jpeg_create_decompress(&decoder.jpeg);
    decoder.jpeg.progress = &decoder.progress;
    jpeg_mem_src(&decoder.jpeg, data, nbBytes);
    jpeg_read_header(&decoder.jpeg, TRUE);
    return true;
}

bool start(Decoder& decoder, J_COLOR_SPACE colourSpace)
{
    if (setjmp(decoder.errors.jump) != 0)
        return false;
    decoder.jpeg.out_color_space = colourSpace;
    decoder.jpeg.dct_method = JDCT_ISLOW;
    jpeg_start_decompress(&decoder.jpeg);
    return !decoder.errors.bDamaged;
}

bool readRow(Decoder& decoder, JSAMPROW row)
{
    if (setjmp(decoder.errors.jump) != 0)
        return false;
    return jpeg_read_scanlines(&decoder.jpeg, &row, g_rowsAtOnce) == g_rowsAtOnce && !decoder.errors.bDamaged;
}

bool finish(Decoder& decoder)
{
    if (setjmp(decoder.errors.jump) != 0)
        return false;
    return jpeg_finish_decompress(&decoder.jpeg) == TRUE && !decoder.errors.bDamaged;
}

bool start(Encoder& encoder, const PictureShape& shape, std::FILE* stream)
{
    if (setjmp(encoder.errors.jump) != 0)
        return false;
    jpeg_create_compress(&encoder.jpeg);
    jpeg_stdio_dest(&encoder.jpeg, stream);
    encoder.jpeg.image_width = static_cast<JDIMENSION>(shape.sizeX);
    encoder.jpeg.image_height = static_cast<JDIMENSION>(shape.sizeY);
    encoder.jpeg.input_components = static_cast<int>(shape.channels);
    encoder.jpeg.in_color_space = shape.channels == 1 ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_set_defaults(&encoder.jpeg);
    jpeg_set_quality(&encoder.jpeg, g_quality, TRUE);
    // Chroma at full size: the channels may hold something else than a picture for the eye.
    encoder.jpeg.comp_info[0].h_samp_factor = 1;
    encoder.jpeg.comp_info[0].v_samp_factor = 1;
    jpeg_start_compress(&encoder.jpeg, TRUE);
    return true;
}

bool writeRow(Encoder& encoder, JSAMPROW row)
{
    if (setjmp(encoder.errors.jump) != 0)
        return false;
    return jpeg_write_scanlines(&encoder.jpeg, &row, g_rowsAtOnce) == g_rowsAtOnce;
}

bool finish(Encoder& encoder)
{
    if (setjmp(encoder.errors.jump) != 0)
        return false;
    jpeg_finish_compress(&encoder.jpeg);
    return true;
}

std::vector<unsigned char> readWhole(const InputFile& file)
{
    if (file.getSize() > file.getLimits().maxBytes)
        throw ToolError(file.getPath(), "is larger than the memory allowed", "raise the limit with --max-memory");
    std::vector<unsigned char> data(static_cast<std::size_t>(file.getSize()));
    const std::int64_t nbRead = file.read(data.data(), data.size());
    if (nbRead != static_cast<std::int64_t>(data.size()))
        throw file.makeDamageError("the data ends too early");
    return data;
}
} // namespace

Picture readJpeg(const InputFile& file)
{
    const std::vector<unsigned char> data = readWhole(file);
    Decoder decoder;
    if (!readHeader(decoder, data.data(), data.size()))
        throw file.makeDamageError(decoder.errors.message.data());

    const J_COLOR_SPACE stored = decoder.jpeg.jpeg_color_space;
    if (stored == JCS_CMYK || stored == JCS_YCCK)
        throw ToolError(file.getPath(), "is a CMYK JPEG", "save it as RGB");
    if (stored != JCS_GRAYSCALE && stored != JCS_YCbCr && stored != JCS_RGB)
        throw ToolError(file.getPath(), "has " + std::to_string(decoder.jpeg.num_components) + " channel(s) of an unknown kind",
                        "save it as a grey or RGB JPEG");

    Picture picture;
    picture.format = "JPEG";
    picture.shape.sizeX = decoder.jpeg.image_width;
    picture.shape.sizeY = decoder.jpeg.image_height;
    picture.shape.channels = stored == JCS_GRAYSCALE ? 1 : 3;
    // One bit stands for a block of 64 samples at the least, and half-size chroma doubles what comes out.
    file.checkClaim(picture.shape, 64 * 8 * 4);
    if (!start(decoder, picture.shape.channels == 1 ? JCS_GRAYSCALE : JCS_RGB))
        throw file.makeDamageError(decoder.errors.message.data());
    picture.allocate();
    std::vector<unsigned char*> planes;
    for (std::size_t channel = 0; channel < picture.shape.channels; ++channel)
        planes.push_back(picture.getPlane<unsigned char>(0, channel));
    std::vector<unsigned char> row(picture.shape.sizeX * picture.shape.channels);
    for (std::size_t y = 0; y < picture.shape.sizeY; ++y)
    {
        if (!readRow(decoder, row.data()))
            throw file.makeDamageError(decoder.errors.message.data());
        spreadPixels(row.data(), picture.shape.sizeX, picture.shape.channels, 1, planes.data(), y * picture.shape.sizeX);
    }
    if (!finish(decoder))
        throw file.makeDamageError(decoder.errors.message.data());
    return picture;
}

void writeJpeg(const std::string& path, int descriptor, const PictureView& picture)
{
    const PictureShape& shape = picture.shape;
    if (shape.sizeX > JPEG_MAX_DIMENSION || shape.sizeY > JPEG_MAX_DIMENSION)
        throw ToolError(path, "is too large for a JPEG file", "write a .tif or .png instead");
    const auto fail = [&path](const std::string& detail)
    { throw ToolError(path, "could not be written (" + detail + ")", "see that the disk has room"); };

    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(::fdopen(::dup(descriptor), "wb"), &std::fclose);
    if (!stream)
        fail("no stream");
    Encoder encoder;
    if (!start(encoder, shape, stream.get()))
        fail(encoder.errors.message.data());
    std::vector<unsigned char> row(shape.sizeX * shape.channels);
    for (std::size_t y = 0; y < shape.sizeY; ++y)
    {
        gatherPixels(picture.planes.data(), y * shape.sizeX, shape.sizeX, shape.channels, 1, row.data());
        if (!writeRow(encoder, row.data()))
            fail(encoder.errors.message.data());
    }
    if (!finish(encoder))
        fail(encoder.errors.message.data());
    if (std::fflush(stream.get()) != 0)
        fail("the disk took no more");
}
} // namespace kovis::tool
