vela_add_test(model_reader_tests
    SOURCES grammar_test.cpp literal_tokeniser.cpp object_test.cpp project_reader_test.cpp
            reader_fault_test.cpp side_tables_test.cpp tokeniser_test.cpp xmeml_reader_test.cpp
    LIBRARIES vela_model)
