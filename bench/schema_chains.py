"""Schemas in which one construct is nested in another, for generate.py."""

from schemas import complex_type, element, record, write_schema


def type_chain(path, count):
    """Types nested `count` deep, each the type of an element of the one before."""

    def components():
        yield from complex_type("Type0", [element("Leaf", "xs:string")])
        for i in range(1, count):
            particles = [element(f"Name{i}", "xs:string"), element(f"Link{i}", f"tns:Type{i - 1}")]
            yield from complex_type(f"Type{i}", particles)
        yield element("Head", f"tns:Type{count - 1}")

    return write_schema(path, components())


def restriction_chain(path, count):
    """`count` simple types, each a restriction of the one before."""

    def components():
        base = "xs:string"
        for i in range(count):
            yield (
                f'<xs:simpleType name="Type{i}"><xs:restriction base="{base}">'
                f'<xs:maxLength value="{2 * count - i}"/></xs:restriction></xs:simpleType>\n'
            )
            base = f"tns:Type{i}"
        yield from record("Head", [element("Item", base)])

    return write_schema(path, components())


def extension_chain(path, count):
    """`count` complex types, each an extension of the one before without elements
    of its own, for which the library would need the cube of the time."""

    def components():
        yield from complex_type("Type0", [element("Name", "xs:string")])
        for i in range(1, count):
            yield (
                f'<xs:complexType name="Type{i}"><xs:complexContent>'
                f'<xs:extension base="tns:Type{i - 1}"/></xs:complexContent></xs:complexType>\n'
            )
        yield element("Head", f"tns:Type{count - 1}")

    return write_schema(path, components())


def nested_anonymous_types(path, count):
    """Elements of anonymous types, nested `count` deep."""
    start = '<xs:element name="Level"><xs:complexType><xs:sequence>\n'
    end = "</xs:sequence></xs:complexType></xs:element>\n"
    return write_schema(path, [start * count, element("Leaf", "xs:string"), end * count])


def nested_model_groups(path, count):
    """Sequences nested `count` deep; the innermost ends with an element that has
    no COBOL form."""
    start, end = "<xs:sequence>\n", "</xs:sequence>\n"
    leaves = element("Leaf", "xs:string") + element("None", "xs:IDREFS")
    return write_schema(path, record("Head", [start * count, leaves, end * count]))


KINDS = {
    "type-chain": (type_chain, ".xsd"),
    "restriction-chain": (restriction_chain, ".xsd"),
    "extension-chain": (extension_chain, ".xsd"),
    "nested-anonymous-types": (nested_anonymous_types, ".xsd"),
    "nested-model-groups": (nested_model_groups, ".xsd"),
}
