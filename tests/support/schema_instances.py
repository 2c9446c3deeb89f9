"""Makes a document that a generated schema accepts.

The schemas are those of the converter: global elements with anonymous types, sequences, and
restrictions of built-in types.
"""

from __future__ import annotations

import xml.etree.ElementTree as ET

XS = "{http://www.w3.org/2001/XMLSchema}"
TEXTS = {
    "string": "x",
    "integer": "1",
    "decimal": "1",
    "float": "1",
    "double": "1",
    "boolean": "true",
}


def text_of(restriction: ET.Element) -> str:
    facets = {facet.tag.removeprefix(XS): facet.get("value", "") for facet in restriction}
    text = TEXTS[restriction.get("base", "").rpartition(":")[2]]
    if "enumeration" in facets:
        return facets["enumeration"]
    return text[: int(facets.get("maxLength", len(text)))]


def fill(element: ET.Element, declaration: ET.Element, namespace: str) -> None:
    restriction = declaration.find(f"{XS}simpleType/{XS}restriction")
    if restriction is not None:
        element.text = text_of(restriction)
    elif "type" in declaration.attrib:
        element.text = TEXTS[declaration.get("type", "").rpartition(":")[2]]
    for member in declaration.findall(f"{XS}complexType/{XS}sequence/{XS}element"):
        for _ in range(max(1, int(member.get("minOccurs", "1")))):
            fill(ET.SubElement(element, namespace + member.get("name", "")), member, namespace)


def instance_of(schema: ET.Element) -> ET.Element:
    """A document of the first global element."""
    declaration = schema.find(f"{XS}element")
    assert declaration is not None
    target = schema.get("targetNamespace")
    namespace = f"{{{target}}}" if target else ""
    root = ET.Element(namespace + declaration.get("name", ""))
    fill(root, declaration, namespace)
    return root
