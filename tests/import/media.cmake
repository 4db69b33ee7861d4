list(APPEND import_test_sources
    formats_test.cpp
    logging_test.cpp
    media_test.cpp
)
