# Tree to text; project_classes.cpp and xmeml_elements.cpp are the tables.
target_sources(vela_model PRIVATE
    blob.cpp
    node_dump.cpp
    project_classes.cpp
    project_writer.cpp
    xmeml_elements.cpp
    xmeml_writer.cpp
)
