<!ENTITY text SYSTEM "text.ent">
