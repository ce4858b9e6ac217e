"""The size of a PNG or JPEG file, from its own headers."""
import struct

PNG_START, PNG_END = b'\x89PNG\r\n\x1a\n', b'IEND\xaeB`\x82'
JPEG_START, JPEG_END = b'\xff\xd8', b'\xff\xd9'
JPEG_TABLES = {0xC4, 0xC8, 0xCC}  # Among the frame headers' numbers, but none of them.


def picture_size(path):
    """Width and height in pixels; None for what is no whole picture."""
    data = path.read_bytes() if path.exists() else b''
    if data.startswith(PNG_START) and data.endswith(PNG_END):
        return struct.unpack('>II', data[16:24])
    if data.startswith(JPEG_START) and data.endswith(JPEG_END):
        return _jpeg_size(data)
    return None


def _jpeg_size(data):
    at = 2
    while at + 9 <= len(data) and data[at] == 0xFF:
        if 0xC0 <= data[at + 1] <= 0xCF and data[at + 1] not in JPEG_TABLES:
            height, width = struct.unpack('>HH', data[at + 5:at + 9])
            return width, height
        at += 2 + struct.unpack('>H', data[at + 2:at + 4])[0]
    return None
