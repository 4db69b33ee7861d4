# Files, media and streams; formats; the descriptive layer. format_tables.cpp is the tables.
target_sources(vela_import PRIVATE
    audio_streams.cpp
    format_tables.cpp
    formats.cpp
    layered_image.cpp
    logging.cpp
    markers.cpp
    media.cpp
    stream_objects.cpp
    streams.cpp
    subclips.cpp
    synthetic_media.cpp
)
