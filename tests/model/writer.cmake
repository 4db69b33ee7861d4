vela_add_test(model_writer_tests
    SOURCES project_forms_test.cpp project_writer_test.cpp round_trip_test.cpp
            xmeml_writer_test.cpp
    LIBRARIES vela_model)
