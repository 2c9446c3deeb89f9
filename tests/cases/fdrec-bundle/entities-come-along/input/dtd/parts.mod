<!ENTITY text SYSTEM "text/text.ent">
